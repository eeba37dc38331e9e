# Derived names for three-digit sample numbers.
expect_status 0 "$CLI" names demonstration 123 4
has "$WORK/out" "TwoCharNumber(sample) = c3"
has "$WORK/out" "geo = demGc304.geo"
has "$WORK/out" "prf = demc3.prf"
expect_status 0 "$CLI" names ab 1 5 1 3
has "$WORK/out" "geo = "
has "$WORK/err" "[Spectrum number < number of experiments is illegal!] SPXname warning: FileNumber = 5; number of expts = 3"
