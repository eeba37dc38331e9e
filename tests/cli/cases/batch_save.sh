# Reading and saving gives the canonical file; names with shell characters are plain data.
cp -r "$DATA/cli/full" full
expect_status 0 "$CLI" --engine-dir "$EXAMPLES/engine" batch-save full/full.spc
same full/full.spc "$DATA/cli/full.expected.spc"
same full/full.spc~ "$DATA/cli/full/full.spc"
has "$WORK/out" "VKScontrol - full"
[ ! -e full/full.txt~ ] || [ -s full/full.txt ]
# Save as another name asks before overwriting; Cancel keeps the old file.
printf 'old\r\n' > full/other.spc
expect_status 1 "$CLI" --engine-dir "$EXAMPLES/engine" --answers cancel batch-save full/full.spc other.spc
has "$WORK/err" "[VKScontrol.check1 warning] Over write other.spc?"
same full/other.spc <(printf 'old\r\n')
expect_status 0 "$CLI" --engine-dir "$EXAMPLES/engine" --answers ok batch-save full/full.spc other.spc
expect_status 0 "$CLI" --engine-dir "$EXAMPLES/engine" --json --answers ok batch-save full/full.spc other.spc
python3 -c 'import json,sys; d=json.load(open(sys.argv[1])); assert d["messages"][0]["answer"]=="OK", d' "$WORK/out"
same full/other.spc "$DATA/cli/full.expected.spc"
# A name the older engines cannot take is refused.
expect_status 1 "$CLI" --engine-dir "$EXAMPLES/engine" batch-save full/full.spc "a long batch name.spc"
has "$WORK/err" "is a non DOS name which is not allowed"
