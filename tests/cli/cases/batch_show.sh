# The demo batch seen headless, as text and as JSON.
cp -r "$EXAMPLES/demo" demo
expect_status 0 "$CLI" --engine-dir "$EXAMPLES/engine" batch-show demo/demo.spc
has "$WORK/out" "Batch demo in demo: 3 samples"
has "$WORK/out" "  2. s2erda.dat ==> erda30 (1)   charge 4.25 uC"
has "$WORK/out" "  2. s3rbs120.dat ==> rbs120 [1]   charge 9.75 uC"
has "$WORK/out" "Sample 1: structure sio2si, verbosity 1 EleProfs. This sample has syntax=2"
expect_status 0 "$CLI" --engine-dir "$EXAMPLES/engine" --json batch-show demo/demo.spc
python3 - "$WORK/out" <<'PY'
import json, sys
d = json.load(open(sys.argv[1]))
assert d["status"] == 0 and d["messages"] == [], d
assert [len(s["associations"]) for s in d["samples"]] == [2, 3, 3], d
assert d["samples"][1]["associations"][1] == "s2erda.dat ==> erda30 (1)"
assert d["title"] == "VKScontrol - demo"
assert [s["syntaxLabel"] for s in d["samples"]] == [". This sample has syntax=2"] * 3, d
PY
