"""scripts/test_results on the output of a real ctest: a test that fails twice and passes then is seen."""
import pathlib
import subprocess
import tempfile

SCRIPT = pathlib.Path(__file__).parent.parent.parent / "scripts/test_results"
TESTS = """
add_test(desk.good "true")
add_test(desk.bad "false")
add_test(desk.flaky "sh" "-c" "echo >> runs; test $(wc -l < runs) -ge 3")
add_test(desk.skipped "sh" "-c" "exit 77")
set_tests_properties(desk.skipped PROPERTIES SKIP_RETURN_CODE 77)
"""
EXPECTED = """failed: linux-desk desk.bad
passed on attempt 3: linux-desk desk.flaky
skipped: linux-desk desk.skipped
1 of the passed failed at first
2 passed, 1 failed, 1 skipped
"""

with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    (folder / "CTestTestfile.cmake").write_text(TESTS)
    subprocess.run(["ctest", "--repeat", "until-pass:3", "--output-junit", folder / "linux-desk.xml", "--output-log",
                    folder / "linux-desk.log"], cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    summary = subprocess.run([SCRIPT, folder], check=True, capture_output=True, text=True).stdout
assert summary == EXPECTED, summary
