#!/usr/bin/python3
"""DXF drawings exchanged with another program: ezdxf writes the drawings that
ferrolith-cli imports, and reads the drawings it exports.

Usage: dxf_exchange.py FERROLITH_CLI
"""
import json
import math
import os
import subprocess
import sys
import tempfile

import ezdxf

CLI = sys.argv[1]
failures = []


def check(ok, what):
    if not ok:
        failures.append(what)


def run(*args):
    r = subprocess.run([CLI, *args], capture_output=True, text=True)
    return r.returncode, r.stdout, r.stderr


def lines_of(wld):
    code, out, err = run("wld-info", wld, "--format", "json")
    check(code == 0, f"wld-info {wld}: {err}")
    return [(l["x1_in"], l["y1_in"], l["x2_in"], l["y2_in"]) for l in json.loads(out)["lines"]]


def same_lines(got, want, what):
    check(len(got) == len(want), f"{what}: {len(got)} lines, want {len(want)}")
    for g, w in zip(got, want):
        check(all(abs(a - b) <= 1e-9 for a, b in zip(g, w)), f"{what}: {g} against {w}")


# The drawing: a C-shape on layer WEB (a line and an open polyline) and a
# closed triangle on layer GUSSET, an arc and a text that are skipped, in
# inches; the same in millimetres.
C_SHAPE = [(0, 0, 0, 10), (0, 0, 5, 0), (0, 10, 5, 10)]
TRIANGLE = [(8, 0, 12, 0), (12, 0, 12, 3), (12, 3, 8, 0)]


def make(path, version, scale, insunits):
    doc = ezdxf.new(version)
    if version != "R12":
        doc.header["$INSUNITS"] = insunits
    for name in ("WEB", "GUSSET"):
        doc.layers.add(name)
    msp = doc.modelspace()
    s = lambda *v: [c * scale for c in v]
    msp.add_line(s(0, 0), s(0, 10), dxfattribs={"layer": "WEB"})
    web = [s(5, 0), s(0, 0)]
    flange = [s(0, 10), s(5, 10)]
    triangle = [s(8, 0), s(12, 0), s(12, 3)]
    if version == "R12":
        msp.add_polyline2d(web, dxfattribs={"layer": "WEB"})
        msp.add_polyline2d(flange, dxfattribs={"layer": "WEB"})
        msp.add_polyline2d(triangle, close=True, dxfattribs={"layer": "GUSSET"})
    else:
        msp.add_lwpolyline(web, dxfattribs={"layer": "WEB"})
        msp.add_lwpolyline(flange, dxfattribs={"layer": "WEB"})
        msp.add_lwpolyline(triangle, close=True, dxfattribs={"layer": "GUSSET"})
    msp.add_arc(s(0, 0), 3 * scale, 0, 90, dxfattribs={"layer": "WEB"})
    msp.add_text("GUSSET PL", dxfattribs={"layer": "GUSSET"})
    doc.saveas(path)


with tempfile.TemporaryDirectory() as tmp:
    p = lambda name: os.path.join(tmp, name)
    # The line (0,0)-(5,0) of the web comes from a polyline drawn the other way round.
    web = [(0, 0, 0, 10), (5, 0, 0, 0), (0, 10, 5, 10)]
    for version in ("R12", "R2000"):
        for unit, scale, code in (("in", 1.0, 1), ("mm", 25.4, 4)):
            name = f"{version}-{unit}"
            make(p(name + ".dxf"), version, scale, code)
            args = [] if version != "R12" or unit == "in" else ["--units", "mm"]
            code_, out, err = run("dxf-import", p(name + ".dxf"), p(name + ".wld"), *args)
            check(code_ == 0, f"{name}: {err}")
            check(out.startswith("Imported 6 weld lines;") and "skipped 2 " in out, f"{name}: {out}")
            same_lines(lines_of(p(name + ".wld")), web + TRIANGLE, name)
            # One layer only.
            run("dxf-import", p(name + ".dxf"), p(name + "-gusset.wld"), "--layer", "GUSSET", *args)
            same_lines(lines_of(p(name + "-gusset.wld")), TRIANGLE, name + " GUSSET")

    # The capacity of the imported C-shape is that of the same shape drawn with wld-new.
    run("dxf-import", p("R2000-mm.dxf"), p("c.wld"), "--layer", "WEB")
    run("wld-new", p("drawn.wld"), *sum((["--line", ",".join(str(v) for v in l)] for l in web), []))
    for wld in (p("c.wld"), p("drawn.wld")):
        subprocess.run([CLI, "wld-info", wld], capture_output=True)
    cap = [run("capacity", w, "--format", "json", "--no-check") for w in (p("c.wld"), p("drawn.wld"))]
    check(all(c[0] == 0 for c in cap), f"capacity: {cap}")
    check(json.loads(cap[0][1])["capacity_kips"] == json.loads(cap[1][1])["capacity_kips"],
          f"capacity of the imported C-shape {cap[0][1]} against the drawn one {cap[1][1]}")

    # Round trip: export, import again, the same lines; ezdxf finds them on WELD.
    check(run("dxf-export", p("R2000-in.wld"), p("back.dxf"))[0] == 0, "dxf-export")
    doc = ezdxf.readfile(p("back.dxf"))
    check(doc.header.get("$INSUNITS") == 1, "exported $INSUNITS")
    welds = [(e.dxf.start.x, e.dxf.start.y, e.dxf.end.x, e.dxf.end.y) for e in doc.modelspace().query("LINE[layer=='WELD']")]
    same_lines(welds, web + TRIANGLE, "ezdxf reading the export")
    check(any(e.dxf.layer == "LOAD" for e in doc.modelspace()), "the load on LOAD")
    run("dxf-import", p("back.dxf"), p("again.wld"), "--layer", "WELD")
    same_lines(lines_of(p("again.wld")), lines_of(p("R2000-in.wld")), "round trip")

    # Refusals leave nothing behind.
    with open(p("notes.dxf"), "w") as f:
        f.write("these are not the drawings you are looking for\n")
    code_, out, err = run("dxf-import", p("notes.dxf"), p("notes.wld"))
    check(code_ == 1 and "not a DXF drawing" in err and not os.path.exists(p("notes.wld")), f"not DXF: {err}")
    text = open(p("R2000-in.dxf")).read()
    with open(p("short.dxf"), "w") as f:
        f.write(text[: len(text) // 2])
    code_, out, err = run("dxf-import", p("short.dxf"), p("short.wld"))
    check(code_ == 1 and "cut short" in err and not os.path.exists(p("short.wld")), f"cut short: {err}")

for f in failures:
    print("FAILED:", f)
sys.exit(1 if failures else 0)
