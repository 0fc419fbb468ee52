#!/usr/bin/env python3
"""Checks the register of status codes (src/**/*status_codes.tsv) against the sources, the headers and the page.

The register has one line per code and group of functions: code, kind (code, or dao for a base to which the number of
the engine's error is added), functions, case. A code may stand on several lines only where the same value is shared on
purpose by functions that the list SHARED names; everything else is an unintended sharing.

Every code that a source or a public header states must be in the register. A registered code must be stated in a
source, or stand in the sixteen from a base that one states ("kBase = 0x2BFF21A0"), to which functions add numbers.

--write renews docs/status-codes.md.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "status-codes.md"
HEAD = """# Status codes

Every code that an exported function returns, made from the register in the sources (`src/**/*status_codes.tsv`). 0 is
success. A code marked "+ DAO" is a base: the number of the database engine's error is added to it (0x2B7E0000 + 3078 =
0x2B7E0C06). `kalo status CODE` says a code in words.

| Code | Functions | Case |
|---|---|---|
"""
# Values that several functions share on purpose, with different cases.
SHARED = ROOT / "tests" / "checks" / "shared_status_codes.txt"


def register():
    rows = []
    for path in sorted(ROOT.glob("src/**/*status_codes.tsv")):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            fields = line.split("\t")
            if len(fields) != 4 or not re.fullmatch(r"0x[0-9A-F]{8}", fields[0]) or fields[1] not in ("code", "dao"):
                sys.exit(f"{path.relative_to(ROOT)}:{number}: not code, kind, functions, case: {line!r}")
            rows.append((int(fields[0], 16), fields[1], tuple(f.strip() for f in fields[2].split(",")), fields[3]))
    return sorted(rows)


def page(rows):
    lines = [f"| 0x{code:08X}{' + DAO' if kind == 'dao' else ''} | {', '.join(f'`{f}`' for f in functions)} | {case} |"
             for code, kind, functions, case in rows]
    return HEAD + "\n".join(lines) + "\n"


def stated(pattern):
    """Path and line number, line, and every code that stands in it before a comment."""
    for path in sorted(p for p in ROOT.glob(pattern) if p.suffix in (".cpp", ".h")):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            for code in re.findall(r"\b0x2[ABC][0-9A-Fa-f]{6}\b", line.split("//")[0]):
                yield f"{path.relative_to(ROOT)}:{number}", line, int(code, 16)


def misplaced(rows):
    known = {code for code, _, _, _ in rows}
    dao = {code for code, kind, _, _ in rows if kind == "dao"}
    bases, returned = set(), set()
    for place, line, code in stated("src/**/*"):
        returned.add(code)
        if re.search(rf"[Bb]ase = 0x{code:08X}", line):
            bases.add(code)
        elif code not in known:
            yield f"{place}: 0x{code:08X} is not in the register"
    for code in sorted(known - returned):
        if code & ~0xF not in bases:
            yield f"0x{code:08X} is in the register, and no source returns it"
    for place, line, code in stated("include/**/*"):
        with_dao_number = code & ~0xFFFF in dao
        if code not in known and not with_dao_number and f"0x{code:08X} is reserved" not in line:
            yield f"{place}: 0x{code:08X} is not in the register"


def problems(rows):
    yield from misplaced(rows)
    shared = set(SHARED.read_text().split()) if SHARED.exists() else set()
    seen = {}
    for code, _, functions, _ in rows:
        for function in functions:
            if code in seen and seen[code] != functions and f"0x{code:08X}" not in shared:
                yield f"0x{code:08X} belongs to {', '.join(seen[code])} and to {function}: shared on purpose?"
        seen[code] = functions
    exported = set((ROOT / "cmake" / "exports.txt").read_text().split())
    for code, _, functions, _ in rows:
        for function in functions:
            if function not in exported:
                yield f"0x{code:08X}: {function} is not exported"


def main():
    rows = register()
    if "--write" in sys.argv:
        PAGE.write_text(page(rows), encoding="utf-8")
    found = list(problems(rows))
    if not PAGE.exists() or PAGE.read_text(encoding="utf-8") != page(rows):
        found.append("docs/status-codes.md is not what the register says: tests/checks/status_codes.py --write")
    print("\n".join(found) or f"status codes: {len(rows)} lines, in step")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
