"""Reading the data file as a person would check it, strictly: a line that is not whole fails."""
from harness.wine import found_path, shown_path

FIELDS = ["Path", "Access", "Filter", "FontName", "FontSize", "Charset", "Bold", "Italic",
          "Underline", "Strikethru", "Wrap", "Align", "ForeColor", "BackColor", "LastPos", "Size",
          "Title", "Marks"]


class DataFile:
    def __init__(self, text):
        """`text` holds whole lines, each in a section and with a key."""
        self.sections = {}
        if text and not text.endswith("\r\n"):
            raise AssertionError("the data file ends inside a line")
        entries = None
        for line in text.split("\r\n")[:-1]:
            if line.startswith("[") and line.endswith("]"):
                entries = self.sections.setdefault(line[1:-1], [])
            elif entries is None or "=" not in line:
                raise AssertionError(f"a line without section or key: {line!r}")
            else:
                entries.append(tuple(line.split("=", 1)))

    def value(self, section, key):
        return dict(self.sections.get(section, [])).get(key)

    def records(self, profile="Default"):
        """The books of a profile, most recent first, each as a dictionary of its fields."""
        return [_record(key, rest) for key, rest in self.sections.get(profile + "\\mFileList", [])]

    def paths(self, profile="Default"):
        return [found_path(record["Path"].replace("*", "=")) for record in self.records(profile)]


def _record(key, rest):
    values = [key] + rest.split("=")
    if len(values) != len(FIELDS):
        raise AssertionError(f"a record of {len(values)} fields: {key}={rest}")
    record = dict(zip(FIELDS, values))
    for name in ("Size", "LastPos"):
        record[name] = int(record[name] or 0)
    return record


def record_line(path, **fields):
    """A record as it stands in the data file."""
    values = {name: "" for name in FIELDS} | {"Filter": "0"} | fields
    values["Path"] = shown_path(path).replace("=", "*")
    return "=".join(str(values[name]) for name in FIELDS)


def data_file_bytes(*records, **placement):
    """A data file with one profile, these records and this placement of the window."""
    lines = ["[mProfileList]", "0=Default", "[Default]"]
    lines += [f"{key}={value}" for key, value in placement.items()]
    lines += ["[Default\\mFileList]", *records]
    return "".join(line + "\r\n" for line in lines).encode()
