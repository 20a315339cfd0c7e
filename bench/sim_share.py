#!/usr/bin/env python3
"""Reads the per-native callgrind dumps of sim_share.sh and prints each native's inclusive
instructions, the simulator's part and its share.

usage: sim_share.py NAMES DUMP... [--top N]   (N = 0: every native)

A dump holds one call of sim_share_measure(); the native's inclusive count is the cost of the
call edges into its Java_* function, the simulator's part the cost of every call edge from an
object outside the simulator into one of the simulator's objects (callgrind's call costs are
inclusive, so nothing is counted twice: calls inside the simulator are not edges from outside).
"""
import re
import sys

SIM_OBJECTS = ("libbrelo.so", "libtcapi.so", "libgatewaysim.so", "libgatewayhost.so")


def is_sim(obj):
    base = obj.rsplit("/", 1)[-1]
    return any(base.startswith(s) for s in SIM_OBJECTS)


def parse(path):
    names = {"ob": {}, "fn": {}}

    def name(kind, text):
        m = re.match(r"\((\d+)\)(?:\s+(.*))?$", text)
        if not m:
            return text
        if m.group(2) is not None:
            names[kind][m.group(1)] = m.group(2)
        return names[kind].get(m.group(1), "?")

    fn_object = {}
    edges = []  # (caller fn, caller ob, callee fn, inclusive)
    ob = fn = None
    cob = cfn = None
    pending_call = False
    with open(path) as f:
        for line in f:
            line = line.rstrip("\n")
            if pending_call:
                pending_call = False
                parts = line.split()
                if len(parts) >= 2:
                    edges.append((fn, ob, cfn, cob, int(parts[-1])))
                cob = None  # a call names its callee's object only when it differs
                continue
            if line.startswith("ob="):
                ob = name("ob", line[3:])
            elif line.startswith("fn="):
                fn = name("fn", line[3:])
                fn_object[fn] = ob
                cob = None
            elif line.startswith("cob="):
                cob = name("ob", line[4:])
            elif line.startswith("cfn="):
                cfn = name("fn", line[4:])
            elif line.startswith("calls="):
                pending_call = True
            elif line.startswith(("cfi=", "cfl=")):
                pass
    inclusive = 0
    sim = 0
    for caller, caller_ob, callee, callee_ob, cost in edges:
        callee_ob = fn_object.get(callee) or callee_ob or caller_ob
        if callee.startswith("Java_") and not callee.startswith("Java_bundlesc"):
            inclusive += cost
        if not is_sim(caller_ob or "") and is_sim(callee_ob or ""):
            sim += cost
    return inclusive, sim


def main():
    args = sys.argv[1:]
    top = 10
    if "--top" in args:
        i = args.index("--top")
        top = int(args[i + 1])
        del args[i:i + 2]
    names_path, dumps = args[0], args[1:]
    # The driver's lines "index Class.method" (natives may print lines of their own).
    names = {}
    for line in open(names_path):
        m = re.match(r"^(\d+) (\w+\.\w+)$", line.strip())
        if m:
            names[int(m.group(1))] = m.group(2)
    rows = []
    for dump in dumps:
        part = int(re.search(r"\.(\d+)$", dump).group(1))  # dump N holds native N - 1
        native = names.get(part - 1, "?")
        inclusive, sim = parse(dump)
        rows.append((sim / inclusive if inclusive else 0.0, native, inclusive, sim))
    rows.sort(reverse=True)
    over = sum(1 for r in rows if r[0] >= 0.25)
    print("%-72s %12s %12s %7s" % ("native", "inclusive", "simulator", "share"))
    for share, native, inclusive, sim in rows[:top] if top else rows:
        print("%-72s %12d %12d %6.1f%%" % (native, inclusive, sim, 100 * share))
    total_i = sum(r[2] for r in rows)
    total_s = sum(r[3] for r in rows)
    print("%d natives; all together %d instructions, %d in the simulator (%.1f%%); "
          "%d natives at 1/4 or more" % (len(rows), total_i, total_s,
                                          100.0 * total_s / max(total_i, 1), over))


if __name__ == "__main__":
    main()
