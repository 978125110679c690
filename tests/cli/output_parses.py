"""ferrolith-cli's csv and json output read by Python's own csv and json modules."""
import csv
import io
import json
import subprocess
import sys

cli, root = sys.argv[1], sys.argv[2]


def run(*args, code=0):
    p = subprocess.run([cli, *args], cwd=root, capture_output=True, text=True)
    assert p.returncode == code, (args, p.returncode, p.stderr)
    return p.stdout


rows = list(csv.DictReader(io.StringIO(run("capacity", "examples/c-shape-right.wld", "--format", "csv"))))
assert len(rows) == 1, rows
assert abs(float(rows[0]["capacity_kips"]) - 70.90017) < 5e-6, rows
assert rows[0]["caption"] == "Weld Group Nominal Strength, KIPS", rows
assert rows[0]["converged"] == "true"

table = [run("bolt-c", str(m), "2", "3", "3", "6", "0", "--format", "csv", *(["--no-header"] if m > 1 else []))
         for m in range(1, 5)]
rows = list(csv.DictReader(io.StringIO("".join(table))))
assert [int(r["M"]) for r in rows] == [1, 2, 3, 4], rows
assert abs(float(rows[3]["C"]) - 3.7562) < 5e-5, rows

bolt = json.loads(run("bolt-c", "4", "2", "3", "3", "6", "0", "--format", "json"))
assert abs(bolt["C"] - 3.7562) < 5e-5 and abs(bolt["C_prime_in"] - 26.0315) < 5e-5, bolt
assert bolt["M"] == 4 and bolt["EX_in"] == 6, bolt

stuck = json.loads(run("weld-c", "3", "5", "0", "0.5", "0", "--strip", "16", "--max-passes", "50",
                       "--format", "json", code=3))
assert stuck["converged"] is False and isinstance(stuck["center_x_in"], float), stuck

info = json.loads(run("wld-info", "examples/angle-left.wld", "--format", "json"))
assert [l["length_in"] for l in info["lines"]] == [8, 5] and info["load"]["side"] == "left", info
print("csv and json output parse")
