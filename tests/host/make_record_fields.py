#!/usr/bin/env python3
"""Writes a C++ header that reports every field of every record in the library's headers:
make_record_fields.py OUTPUT HEADER..."""
import re
import sys

RECORD = re.compile(r"typedef struct (\w+) \{(.*?)\} \1;", re.DOTALL)
FIELD = re.compile(r"(\w+)\s+(\w+)\s*(\[\w+\])?$")


def show(kind, name, array):
    value = f"record.{name}"
    if array and kind != "char":
        return f"    for (const auto element : {value}) " + show_value(kind, name, "element")
    return "    " + show_value(kind, name, value)


def show_value(kind, name, value):
    return f"ShowFields(fields, {value});" if kind.startswith("Kalo") else f'fields("{name}", {value});'


def reporter(record, body):
    fields = [FIELD.match(field.strip()) for field in body.split(";") if field.strip()]
    lines = [show(*field.groups()) for field in fields]
    return "\n".join([f"inline void ShowFields(Fields& fields, const {record}& record) {{", *lines, "}\n"])


def main(output, headers):
    parts = ['#pragma once\n\n#include "host/report.h"\n\nnamespace host {\n']
    for header in headers:
        with open(header, encoding="utf-8") as file:
            text = re.sub(r"/\*.*?\*/", "", file.read(), flags=re.DOTALL)
        parts += [reporter(*match.groups()) for match in RECORD.finditer(text)]
    with open(output, "w", encoding="utf-8") as file:
        file.write("\n".join(parts) + "\n}  // namespace host\n")


main(sys.argv[1], sys.argv[2:])
