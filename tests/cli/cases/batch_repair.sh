# Bare LFs are found, reported and repaired on request.
printf 'a.dat 1 g s\nb.dat 2 g\n' > lf.spc
expect_status 1 "$CLI" batch-check lf.spc
has "$WORK/err" "[checkBatchFile warning] The batch file lf.spc has double-quotes or bare LFs in it (press Cancel to silence this message)"
expect_status 0 "$CLI" batch-check lf.spc --repair
same lf.spc <(printf 'a.dat 1 g s\r\nb.dat 2 g\r\n')
same lf.spc~ <(printf 'a.dat 1 g s\nb.dat 2 g\n')
# Reading asks; the answers come from --answers.
printf 'a.dat 1 g s\nb.dat 2 g\n' > lf2.spc
expect_status 0 "$CLI" --answers ok,yes batch-show lf2.spc
has "$WORK/err" "[ReadBatch warning] Do you want to correct file? (Rewrites lf2.spc)"
same lf2.spc <(printf 'a.dat 1 g s\r\nb.dat 2 g\r\n')
