# geometry-rewrite, geometry-syntax and batch-syntax end to end: the editor's save with its questions
# and the kept previous contents, the switch to an engine generation, the short-name rule, a syntax
# conflict that leaves the file empty, and the engine generation of each sample's geometries.
ENGINE="$EXAMPLES/engine"
hc() { expect_status "$1" "$CLI" --engine-dir "$ENGINE" "${@:2}"; }
cp -r "$EXAMPLES/demo" demo
cp -r "$EXAMPLES/demo" orig
# A geometry of the older engines: the one-word pile-up line.
printf '19\r\n60 600\r\n4He 4He\r\n2000\r\n15\r\nIBM\r\n0 120\r\n3.6\r\n1.95 45\r\npile 2e-6\r\n' > demo/old.geo

# The demo batch: every sample's geometries need VKS9.
hc 0 batch-syntax demo/demo.spc
has "$WORK/out" "Sample 1. This sample has syntax=2"
has "$WORK/out" "Sample 3. This sample has syntax=2"
has "$WORK/out" "  s3pixe.dat ==> pixe135: 2 (VKS syntax VKS9)"
[ ! -s "$WORK/err" ] || { echo "messages on stderr"; cat "$WORK/err"; exit 1; }
# A sample that mixes a VKS9 geometry with one of the older engines: the box, and exit 1.
printf 's1rbs165.dat  10.5  rbs165  sio2si  1  \r\ns1rbs120.dat  10.5  old\r\n' > demo/mix.spc
hc 1 batch-syntax demo/mix.spc
has "$WORK/out" "  s1rbs165.dat ==> rbs165: 2 (VKS syntax VKS9)"
has "$WORK/out" "  s1rbs120.dat ==> old: -2 (VKS syntax pre-VKS9)"
has "$WORK/out" "  inconsistent: no one engine generation reads all of these"
has "$WORK/err" "[Module1.ShowSample] Inconsistent geometry file syntax for geometries in this sample: press Cancel to silence this message"

# For a VKS9 engine the one-word pile-up line is a conflict, reported by the read's box.
hc 0 geometry-syntax demo/old.geo demo/nra150.geo --engine-version 9300
cat > syntax.txt <<'TXT'
demo/old.geo
  syntax -2: VKS syntax pre-VKS9; VKSverSyn -1
  features: ChuBohr 7 DoubleScat 7 PileUp 3 WDEPTH 7
  conflicts with the engine (VKS9): PileUp
demo/nra150.geo
  syntax 2: VKS syntax VKS9; VKSverSyn 9
  features: ChuBohr 7 DoubleScat 7 STRAGcommand 4 PileUp 7 Resonance 6 WDEPTH 7
  conflicts with the engine (VKS9): none
TXT
same "$WORK/out" syntax.txt
has "$WORK/err" "[Syntax error for Geometry file: old.geo] PileUp . Do you want to AVOID further details?"

# In place: the overwrite question, the old file kept as "~", and the saved file reads back to the
# same record with no message. A second save of the saved file changes nothing.
hc 0 geometry-rewrite demo/rbs165.geo --structure demo/sio2si.str
has "$WORK/out" "Geometry rbs165.geo saved as demo/rbs165.geo: written"
has "$WORK/err" "[Please Check] Over write rbs165.geo?"
same demo/rbs165.geo~ orig/rbs165.geo
hc 0 geometry-show demo/rbs165.geo --structure demo/sio2si.str
has "$WORK/out" "0 messages"
tail -n +2 "$WORK/out" > saved.txt
hc 0 geometry-show orig/rbs165.geo --structure orig/sio2si.str
tail -n +2 "$WORK/out" > read.txt
same saved.txt read.txt
# A new name: no question, no "~".
hc 0 geometry-rewrite demo/rbs165.geo again.geo --structure demo/sio2si.str
[ ! -s "$WORK/err" ] && [ ! -e demo/again.geo~ ] || { echo "a question or a ~ file for a new name"; cat "$WORK/err"; exit 1; }
same demo/again.geo demo/rbs165.geo
# Whatever the extension asked for, the save writes a .geo file, and says so.
hc 0 geometry-rewrite demo/rbs165.geo copy.txt --structure demo/sio2si.str
has "$WORK/out" "saved as demo/copy.geo: written"
same demo/copy.geo demo/rbs165.geo

# A conflict nobody answers: the default saves the file.
cp demo/erda30.geo g8.geo
hc 0 geometry-rewrite g8.geo --engine-version 8000
has "$WORK/out" "Geometry g8.geo saved as ./g8.geo: written"
[ -s g8.geo ] || { echo "g8.geo left empty"; exit 1; }

# Before VKS9 a long name is refused and nothing is written; switched to VKS9 the same name is taken
# and the one-word pile-up line becomes the VKS9 form.
hc 1 geometry-rewrite demo/old.geo averylongname.geo
has "$WORK/out" "name refused"
has "$WORK/err" "[Geometry1.Check2] Non DOS names not allowed in this version. Please use another name"
[ ! -e demo/averylongname.geo ] || { echo "a refused name was written"; exit 1; }
hc 0 geometry-rewrite demo/old.geo averylongname.geo --syntax 2
has demo/averylongname.geo $'pile cj  2e-6  0e-6 \r'
hc 0 geometry-syntax demo/averylongname.geo
has "$WORK/out" "syntax 2: VKS syntax VKS9"

# A VKS9 geometry (general geometry) saved for a VKS8 engine: "Yes, show the problems" leaves the file
# empty, and its old contents stay in "~".
cp demo/erda30.geo g9.geo
hc 1 --json --answers yes,ok,yes,yes geometry-rewrite g9.geo --engine-version 8000
[ ! -s g9.geo ] || { echo "g9.geo not emptied"; exit 1; }
same g9.geo~ orig/erda30.geo
python3 - "$WORK/out" <<'PY'
import json, sys
d = json.load(open(sys.argv[1]))
assert d["file"] == "g9.geo" and d["written"] == "./g9.geo", d
assert d["result"] == "problems shown, file left empty" and d["status"] == 1, d
s = d["syntax"]
assert s["syntax"] == 2 and s["label"] == "VKS syntax VKS9" and s["vksVerSyn"] == 9 and not s["inconsistent"], s
assert s["features"]["GeneralGeom"] == 4 and s["conflicts"] == "GeneralGeom", s
texts = [m["text"] for m in d["messages"]]
assert texts[3].startswith("Syntax conflict: do you want to see the problems?"), texts
assert texts[4] == "GeneralGeometry only available for v9. This is the last error.", texts
PY

expect_status 2 "$CLI" geometry-rewrite demo/old.geo --syntax 3
expect_status 2 "$CLI" batch-syntax demo/demo.spc --sample x
