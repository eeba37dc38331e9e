# The demo structures seen headless, and written back in the engine's form.
cp -r "$EXAMPLES/demo" demo
ENGINE="$EXAMPLES/engine"
for s in sio2si thickox tio2si; do
  expect_status 0 "$CLI" --engine-dir "$ENGINE" structure-show demo/$s.str
  has "$WORK/out" "Structure $s.str in demo"
  has "$WORK/out" "0 messages"
  [ ! -s "$WORK/err" ] || { echo "messages for $s:"; cat "$WORK/err"; exit 1; }
done
expect_status 0 "$CLI" --engine-dir "$ENGINE" structure-show demo/thickox.str
has "$WORK/out" "density:     6.6 1e22 at/cc = 2.194991 g/cc (given), mean mass 20.028101 u"
has "$WORK/out" "real elements: Si O H"

expect_status 0 "$CLI" --engine-dir "$ENGINE" --json structure-show demo/tio2si.str
python3 - "$WORK/out" <<'PY'
import json, sys
d = json.load(open(sys.argv[1]))
assert d["status"] == 0 and d["messages"] == [] and d["read"], d
assert (d["NLE"], d["NElements"], d["NMolecules"]) == (3, 2, 1), d
les = d["logicalElements"]
assert les[0]["name"] == "TiO2" and les[0]["densityGiven"] and les[0]["atomicDensity"] == 9.57, les[0]
assert les[1]["symbol"] == "Fe" and les[1]["concMax"] == 0.01, les[1]
assert les[2]["substrate"] and d["realElements"] == ["Ti", "O", "Fe", "Si"], d
assert d["inclusions"] is None and d["surface"] is None
PY

# Written to a new file in the engine's form; over itself, the old file is kept as "~".
expect_status 0 "$CLI" --engine-dir "$ENGINE" structure-rewrite demo/sio2si.str new.str
printf ' 10  30000\r\n 2\r\nSi 1 O 2   6.61\r\n 0  2000\r\n 0  1\r\nSi\r\n 0  0\r\n s\r\n' > expected.str
same new.str expected.str
expect_status 0 "$CLI" --engine-dir "$ENGINE" structure-rewrite demo/sio2si.str
has "$WORK/err" "[WriteStructureFile: filecheck] Over write sio2si.str?"
same demo/sio2si.str expected.str
same demo/sio2si.str~ "$EXAMPLES/demo/sio2si.str"
expect_status 1 "$CLI" --engine-dir "$ENGINE" --answers no structure-rewrite demo/thickox.str
has "$WORK/out" "Not written"

# Before the ninth generation the name must be a short one; --syntax 2 allows any.
expect_status 1 "$CLI" --engine-dir "$ENGINE" structure-rewrite demo/thickox.str thickoxide.str
has "$WORK/err" "Non DOS names not allowed in this version (VKSv7)"
expect_status 0 "$CLI" --engine-dir "$ENGINE" structure-rewrite demo/thickox.str thickoxide.str --syntax 2

# A broken file: the read error box, and status 1.
printf '100\r\n2\r\nSi\r\n0 0\r\n0 1\r\n' > cut.str
expect_status 1 "$CLI" --engine-dir "$ENGINE" --json structure-show cut.str
python3 - "$WORK/out" <<'PY'
import json, sys
d = json.load(open(sys.argv[1]))
assert d["status"] == 1 and not d["read"], d
assert d["messages"][0]["title"] == "vkscontrol.ReadStructureFile: read error", d
assert d["messages"][0]["text"] == "Structure file error: cut.str, last line read: 0 1 at line number 5", d
PY
