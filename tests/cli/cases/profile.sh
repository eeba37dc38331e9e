# Profile commands: the default profile, column edits byte for byte, the check, the flags.
expect_status 0 "$CLI" profile-default v.prf --nle 3 --inclusions
same v.prf <(printf '2\r\n100 1 0 0 \r\n100 0 1 0 \r\n')
expect_status 0 "$CLI" profile-column add v.prf 0
same v.prf <(printf '2\r\n100  0 1 0 0 \r\n100  0 0 1 0 \r\n')
same v.prf~ <(printf '2\r\n100 1 0 0 \r\n100 0 1 0 \r\n')
expect_status 0 "$CLI" profile-column swap V.PRF 1 3
same v.prf <(printf '2\r\n100 0 1 0 0 \r\n100 1 0 0 0 \r\n')
expect_status 1 "$CLI" profile-column del v.prf 5
has "$WORK/err" "[PRFdelLE] deletion point not within profile file range, {0, 4} (press Cancel to silence this message)"
expect_status 2 "$CLI" profile-column move v.prf 1
# Reading for a structure with roughness model 1: the fit flag column is absent here.
printf '2\r\n100 1 3 20\r\n200 1 1 30\r\n' > r.prf
expect_status 0 "$CLI" --json profile-show r.prf --nle 2 --roughness 1
has "$WORK/out" '"hasRoughColumns":true,"hasRoughFlag":false,"raw":[[100,1,3,20],[200,1,1,30]],"fractions":[[100,0.25,0.75,20],[200,0.5,0.5,30]]'
# The check: a local search needs the roughness fit flag as well.
printf '100\r\n2\r\nSi\r\n0 0\r\n0 1\r\nO\r\n0 0\r\n0 1\r\nROUGH\r\n1 0 0\r\n0 0\r\n0 0\r\n0 0\r\n' > s.str
expect_status 0 "$CLI" profile-check r.prf s --speed 0
has "$WORK/out" "passes"
expect_status 1 "$CLI" profile-check r.prf s.str --speed x --mode 2
has "$WORK/err" "[Check Profile File utility (chkPRF)] Number of elements in profile file r.prf does not match structure file s.str at line number 1"
# Flags: the file's own values when it fits, the default rule otherwise.
printf '2\r\n0  1  1  1\r\n1  0  0  0\r\n' > vksprf.ord
expect_status 0 "$CLI" flags-show r.prf --nle 2 --roughness 1
has "$WORK/out" "  1: 0 1 1 1"
has "$WORK/out" "  2: 1 0 0 0"
expect_status 0 "$CLI" --json flags-show r.prf --nle 1
has "$WORK/out" '"flags":[[-1,-1],[-1,-1]]'
# With the structure file itself (read with the engine directory's data tables): two logical elements
# and roughness model 1.
ENGINE="$EXAMPLES/engine"
expect_status 0 "$CLI" --engine-dir "$ENGINE" --json profile-show r.prf --structure s.str
has "$WORK/out" '"profileLE":2,"hasRoughColumns":true,"hasRoughFlag":false'
expect_status 0 "$CLI" --engine-dir "$ENGINE" profile-default d.prf --structure s.str
same d.prf <(printf '2\r\n100 1 0 0 0 \r\n100 0 1 0 0 \r\n')
expect_status 1 "$CLI" --engine-dir "$ENGINE" flags-show r.prf --structure gone.str
expect_status 2 "$CLI" flags-show r.prf --structure s.str --nle 2
