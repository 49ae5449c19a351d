# SPDX-License-Identifier: MIT
"""The JSON of the tool against its schema: schema.py TOOL SCHEMA CORPUS

Messages of our own that bring every key forth, and one in ten of the corpus where there is one. The
schema forbids keys that it does not name, and each key that it names must occur.
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

try:
    import jsonschema
except ImportError:
    print("skipped: python3-jsonschema is not installed")
    sys.exit(77)

COMMANDS = ("list", "tree", "lint")

OWN = (b"From a@b Mon Jun  3 10:15:00 2024\nFrom: a@b.example\nTo: c@d.example\nSubject: s\n"
       b"Date: Mon, 3 Jun 2024 10:15:00 +0000\nReturn-Receipt-To: a\xff\nX-MESSAGE-PARTID: 1\n"
       b"X-QRN-Message-Body-Truncated: 1\nX-QRN-Message-Body-Size: 9\nX-QRN-DSN: 1\n"
       b"X-QRN-Smart-Send-Type: 1\nX-QRN-AS-Attn-Name: n\nX-QRN-AS-Attn-Size: 9\n"
       b"Content-Type: multipart/mixed; boundary=b\n\npreamble\n"
       b"--b\nContent-Type: text/\xe9; charset=x; name=n\nContent-Disposition: inline\n\n\xe9\n"
       b"--b\nContent-Type: image/png\nContent-Transfer-Encoding: base64\n"
       b"X-QRN-AS-Attn-Undownload: 1\nContent-Disposition: attachment; filename=f\n\nYWJj\n"
       b"--b\nContent-Type: message/rfc822\n\nSubject: inner\n\nx\n--b--\n")


def corpus_files(folder):
    files = sorted(str(path) for path in pathlib.Path(folder).rglob("*") if path.is_file())
    return files[::10]


def lines_of(tool, command, files):
    result = subprocess.run([tool, command, "--json", *files], capture_output=True, check=False,
                            env=dict(os.environ, LC_ALL="C.UTF-8"), timeout=300)
    return [json.loads(line) for line in result.stdout.decode("utf-8").splitlines()]


def names_in(value):
    """The keys of all objects in a JSON value."""
    if isinstance(value, dict):
        return set(value).union(*map(names_in, value.values()))
    if isinstance(value, list):
        return set().union(*map(names_in, value))
    return set()


def documented_names(schema):
    definitions = schema["$defs"].values()
    return set().union(*(definition.get("properties", {}) for definition in definitions))


def main(tool, schema_path, corpus):
    schema = json.loads(pathlib.Path(schema_path).read_text(encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema)
    occurred = set()
    failed = False
    with tempfile.TemporaryDirectory() as folder:
        own = os.path.join(os.fsencode(folder), b"caf\xe9.mbox")
        pathlib.Path(os.fsdecode(own)).write_bytes(OWN)
        for command in COMMANDS:
            validator = jsonschema.Draft202012Validator(
                {"$ref": f"#/$defs/{command}", "$defs": schema["$defs"]})
            for line in lines_of(tool, command, [own, *corpus_files(corpus)]):
                occurred |= names_in(line)
                for error in validator.iter_errors(line):
                    failed = True
                    print(f"{command} --json: {error.message} in {json.dumps(line)[:300]}")
    missing = documented_names(schema) - occurred
    if missing:
        print(f"documented, but never printed: {sorted(missing)}")
    return 1 if failed or missing else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
