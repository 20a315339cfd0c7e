#!/usr/bin/env python3
"""Writes the seed inputs of tree_values_fuzz into fuzz/corpus/tree_values/seed, and its
dictionary fuzz/tree_values.dict (the native name lines, values the natives parse).

For every native that reads the configuration tree (read from fuzz/tree_values_harness.cpp),
with the valid-looking arguments of java_inputs_seeds.py:
  <native>-held      no value fed: the default gateway's tree as it is
  <native>-absent    every attribute read is absent
  <native>-long      the first 12 values read 4095 bytes (digits, so numbers overflow)
  <native>-table     the values of the harness's table in turn (numbers at the bounds, lists,
                     the words the natives compare against, texts that are not UTF-8)
  <native>-bytes     short values of raw bytes: separators, NULs, bytes that are not UTF-8
The input layout is described in fuzz/tree_values_harness.h.
"""
import os
import re

import java_inputs_seeds as ji

HERE = os.path.dirname(os.path.abspath(__file__))
READS = 400  # items per seed: more than any native reads on the default gateway


def tree_natives():
    harness = open(os.path.join(HERE, "tree_values_harness.cpp")).read()
    listed = re.search(r"kTreeNatives\[\] = \{(.*?)\};", harness, re.S).group(1)
    names = re.findall(r'"(\w+\.\w+)"', listed)
    catalogue = open(os.path.join(ji.ROOT, "tests", "native_catalogue.cpp")).read()
    params = {c + "." + m: p for c, m, p in re.findall(
        r'\{"\w+",\s*"(\w+)",\s*"(\w+)",\s*"\w+",\s*"([IZBSAY]*)"', catalogue)}
    return [(n, params[n]) for n in names]


def piece(data, repeat=None):
    if repeat is None:
        return b"\x02" + bytes([len(data)]) + data
    return b"\x03" + bytes([len(data)]) + data + bytes([repeat])


def feeds():
    table = bytes(range(4, 4 + 60))  # every tag of the table once (60 values)
    raw = [b",", b"0,", b"\xff", b"a\x00b", b" ", b"-", b"\xc0\x80", b"8,16,24,32,40,48,56,64"]
    return {
        "held": b"",
        "absent": b"\x01" * READS,
        "long": piece(b"9" * 255, 17) * 12,
        "table": (table * (READS // len(table) + 1))[:READS],
        "bytes": b"".join(piece(raw[i % len(raw)]) for i in range(READS)),
    }


def main():
    out_dir = ji.seed_dir("tree_values")
    count = 0
    for name, params in tree_natives():
        head = ji.encode(name, params, ji.valid(name, params))
        for tag, feed in feeds().items():
            ji.write_seed(out_dir, name, tag, head + feed)
            count += 1
    print("%d seeds in %s" % (count, out_dir))
    ji.write_dict("tree_values", "values the natives parse", [n for n, _ in tree_natives()], WORDS)

WORDS = ["0", "-1", "2147483647", "4294967296", "Yes", "No", "TCP", "UDP", "TCP/UDP", "ALL",
         "Route", "Bridge", "INTERNET", "TR069", "IPTV", "TAG", "0,8,16,24", ",", "192.168.1.20",
         "00:11:22:33:44:55"]


if __name__ == "__main__":
    main()
