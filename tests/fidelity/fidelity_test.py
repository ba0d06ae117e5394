#!/usr/bin/python3
"""A small page stands where Chromium had it when its boxes were stored: fidelity_test.py PAGE_BOXES."""
import json
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
import comparison  # noqa: E402
import fonts  # noqa: E402


def main():
    if 'DejaVu' not in subprocess.run(['fc-match', 'DejaVu Serif'], stdout=subprocess.PIPE, text=True).stdout:
        print('skipped: no DejaVu fonts here (apt install fonts-dejavu-core)')
        return 77
    failed = False
    with tempfile.TemporaryDirectory(prefix='fidelity.') as folder:
        fonts.use('DejaVu', folder)
        for width, theirs in json.loads(comparison.SMALL_BOXES.read_text()).items():
            ours = comparison.our_page(sys.argv[1], comparison.SMALL_PAGE, int(width))
            result = comparison.Comparison(ours, theirs)
            for kind, element, what, our, their in result.faults:
                print(f'{width} pixels: {theirs["names"][str(element)]} {element}, {kind}, {what}: {our} for {their}')
            print(f'{width} pixels: {sum(result.agreeing.values())} of {sum(result.counts.values())} agree')
            failed = failed or bool(result.faults) or not result.text_equal or result.counts['lines'] < 20
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
