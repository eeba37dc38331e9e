# The demo geometries read against the demo structures without a message, as text and JSON; a broken
# file reports its failure and exits 1.
ENGINE="$EXAMPLES/engine"
cp -r "$EXAMPLES/demo" demo
for g in rbs165 rbs120 erda30 nra150 pixe135; do
  expect_status 0 "$CLI" --engine-dir "$ENGINE" geometry-show demo/$g.geo --structure demo/tio2si.str
  has "$WORK/out" "0 messages"
  [ ! -s "$WORK/err" ] || { echo "messages on stderr for $g"; cat "$WORK/err"; exit 1; }
done
expect_status 0 "$CLI" --engine-dir "$ENGINE" geometry-show demo/rbs165.geo --structure demo/sio2si.str
has "$WORK/out" "Geometry rbs165.geo in demo, structure sio2si.str"
has "$WORK/out" "  Exit                           15"
has "$WORK/out" "  Elements[1].MsCutoff           450"
has "$WORK/out" "  10: \\ Si surface barrier detector at 165 degrees, 2 MeV 4He+"

expect_status 0 "$CLI" --engine-dir "$ENGINE" --json geometry-show demo/pixe135.geo
python3 - "$WORK/out" <<'PY'
import json, sys
d = json.load(open(sys.argv[1]))
assert d["status"] == 0 and d["messages"] == [] and d["read"], d
r = d["record"]
assert r["Kind"] == "4" and r["FileFormat"] == "28" and r["IsPixe"] == "-1", r
assert r["PixeFoilCount"] == "2" and r["PixeFoils[1].Composition"] == "Be", r
assert r["Syntax"] == "2", r
assert d["comments"] == [{"line": 13, "text": "\\ Si(Li) X-ray detector at 135 degrees: 25 um Be window and a Si dead layer"}], d
PY

# A file that ends too soon: the failure box, exit 1.
printf '19\r\n60 600\r\n4He 4He\r\n' > short.geo
expect_status 1 "$CLI" --engine-dir "$ENGINE" geometry-show short.geo
has "$WORK/out" "the read failed"
has "$WORK/err" "[ReadGeometry warning: Incomplete geo file:  Please Check] (ReadGeom5) Error in Geometry  short.geo at line number: 4: file terminates too soon!  (press Cancel to silence this message)"
expect_status 2 "$CLI" geometry-show
