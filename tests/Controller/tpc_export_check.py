#!/usr/bin/env python3
"""Reads a TPC export with Python's own INI reader and checks its layout:
usage: tpc_export_check.py FILE CLPC(0|1) APCEX(0|1) V3(0|1) SECTION...
Prints what is wrong and exits 1, or exits 0."""
import configparser
import re
import sys

REAL5 = re.compile(r"^-?\d+\.\d{5}$")
REAL6 = re.compile(r"^-?\d+\.\d{6}$")
INTEGER = re.compile(r"^\d+$")
MODES = ("PA high mode", "PA middle mode", "PA low mode")


def expected_keys(clpc, apc_ex, v3):
    keys = {"RF Chip ID": None, "Subband Max UARFCN": (INTEGER, 15)}
    for mode in MODES:
        keys["VGA DAC, " + mode] = (INTEGER, 4)
        keys["Power, " + mode] = (REAL5, 4)
        keys["Subband power compensation, " + mode] = (REAL5, 15)
        keys["Temperature compensation, " + mode] = (REAL5, 8)
    for key in ("START1", "END1", "START2", "END2"):
        keys[key] = (INTEGER, 1)
    if apc_ex:
        keys["Max Power Offset (dB)"] = (REAL5, 1)
        keys["UPA Max Power Offset (dB)"] = (REAL5, 1)
    else:
        keys["Max Power"] = (REAL5, 1)
        keys["Max VGA DAC"] = (INTEGER, 1)
    if clpc:
        for point in range(3):
            keys["PD power compensation (db), Point %d" % point] = (REAL5, 1)
        keys["PD Subband power compensation (db)"] = (REAL5, 15)
    if v3:
        keys["Wanted Power Offset"] = (REAL6, 1)
        keys["PA Middle Power Offset"] = (REAL6, 1)
    return keys


def main(argv):
    path, clpc, apc_ex, v3 = argv[1], argv[2] == "1", argv[3] == "1", argv[4] == "1"
    sections = argv[5:]
    parser = configparser.ConfigParser(interpolation=None)
    parser.optionxform = str
    parser.read(path, encoding="utf-8")
    problems = []
    if sorted(parser.sections()) != sorted(sections):
        problems.append("sections %s, expected %s" % (parser.sections(), sections))
    keys = expected_keys(clpc, apc_ex, v3)
    for section in sections:
        if not parser.has_section(section):
            continue
        found = dict(parser.items(section))
        if set(found) != set(keys):
            problems.append("%s: keys %s" % (section, sorted(set(found) ^ set(keys))))
        for key, rule in keys.items():
            if rule is None or key not in found:
                continue
            form, count = rule
            values = found[key].split(",")
            if len(values) != count or not all(form.match(v) for v in values):
                problems.append("%s: %s = %s" % (section, key, found[key]))
            elif form is not INTEGER and any(abs(float(v)) > 128 for v in values):
                problems.append("%s: %s not in dB: %s" % (section, key, found[key]))
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
