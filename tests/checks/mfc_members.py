#!/usr/bin/env python3
"""Keeps src/ to what MFC documents: its members by the list beside this file, its headers, its free functions.

The platform's headers are the only declarations that src/ is compiled against here, so a member that they declare and
the list lacks is the platform's own, and src/ must not name it."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIST = pathlib.Path(__file__).with_suffix(".txt")
# <windows.h> is missing on purpose: MFC's headers include it, and refuse one that came before.
SYSTEM_HEADERS = {"afx.h", "afxdao.h", "afxdisp.h", "mbstring.h", "shellapi.h"}
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
CLASS = re.compile(r"^(?:class|struct) (\w+)[^;{]*\{(.*?)^\};", re.DOTALL | re.MULTILINE)
PRIVATE = re.compile(r"^  private:.*?(?=^  public:|\Z)", re.DOTALL | re.MULTILINE)
MEMBER = re.compile(r"\b([A-Z][a-z]\w*(?=\()|m_\w+)")
INCLUDE = re.compile(r"#include <([\w./]+)>")


def documented():
    lines = [line.split() for line in LIST.read_text().splitlines() if line and not line.startswith("#")]
    return {name: set(members) for name, *members in lines}


def text_of(path):
    return COMMENT.sub("", path.read_text(encoding="utf-8"))


def platform_only(listed):
    """Public members of the platform's MFC classes that MFC does not document."""
    own = set()
    for header in sorted((ROOT / "platform/include").glob("*.h")):
        for name, body in CLASS.findall(text_of(header)):
            public = PRIVATE.sub("", body) if "private:" in body else body
            own |= set(MEMBER.findall(public)) - listed.get(name, set()) - {name}
    return own - set.union(*listed.values())


def findings(path, own, functions):
    text = text_of(path)
    used = set(re.findall(r"(?:\.|->)(\w+)\b", text)) & own
    yield from (f"member {name} is not MFC's" for name in sorted(used))
    called = {name for name in re.findall(r"\b(Afx\w+)\(", text)} - functions
    yield from (f"function {name} is not MFC's" for name in sorted(called))
    for header in INCLUDE.findall(text):
        if header.endswith(".h") and header not in SYSTEM_HEADERS and not header.startswith("kalodata/"):
            yield f"header <{header}> is not there with MFC"


def main():
    listed = documented()
    own = platform_only(listed)
    sources = sorted([*ROOT.glob("src/**/*.cpp"), *ROOT.glob("src/**/*.h")])
    faults = [f"{path.relative_to(ROOT)}: {fault}" for path in sources for fault in findings(path, own, listed["-"])]
    print("\n".join(faults) or f"{len(sources)} sources keep to MFC's documented members")
    return 1 if faults or not sources else 0


sys.exit(main())
