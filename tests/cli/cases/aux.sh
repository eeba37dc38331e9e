# verify-nonr and verify-effi: verdicts, transcripts on stderr, JSON, exit status.
cp -r "$DATA/geometry/aux/nonr" ebs
cp "$DATA/geometry/aux/effi/ok.eff" "$DATA/geometry/aux/effi/over.eff" .
expect_status 0 "$CLI" verify-nonr r33_ok.r33 --ebs-dir ebs --scatter 170 --energy 2000
has "$WORK/out" "ebs/r33_ok.r33: pass (0 errors, 0 warnings)"
has "$WORK/err" "(R33): OK for Sample Number = 1 and Geofile = ] R33 file ./ebs/r33_ok.r33 has5 lines,"
expect_status 0 "$CLI" verify-nonr r33_ok.r33 --ebs-dir ebs --scatter 165 --quiet
has "$WORK/err" "[VerifyNonRFile warning (1)] R33 file (nonRBS cross-sections) is for scattering angle 170 not value in Geo file 165 (press Cancel to silence this message)"
expect_status 1 "$CLI" verify-nonr ebs/plain_mm.dat
has "$WORK/out" "fail (1 errors, 0 warnings)"
has "$WORK/err" "Non-Rutherford file contains illegal string: m m"
# Cancel on the first box silences the second.
expect_status 1 "$CLI" --answers cancel verify-nonr ebs/plain_mm.dat
[ "$(wc -l < "$WORK/err")" = 1 ] || { echo "Cancel did not silence"; cat "$WORK/err"; exit 1; }
expect_status 1 "$CLI" --json verify-nonr nothere.dat --ebs-dir nowhere
has "$WORK/out" '"pass":false,"errors":1'
has "$WORK/out" '"title":"VerifyNonRFile error ","text":"EBSFilePath nowheredoes not appear to exist'
expect_status 2 "$CLI" verify-nonr a b
expect_status 0 "$CLI" verify-effi ok.eff
has "$WORK/out" "ok.eff: pass (0 errors)"
has "$WORK/err" "4 lines in detector efficiency file,  between enegies 100 and 2000 (keV)"
expect_status 1 "$CLI" --json verify-effi over.eff
has "$WORK/out" '"pass":false,"errors":1'
expect_status 1 "$CLI" verify-effi missing.eff
has "$WORK/err" "halvo-cli: verify-effi: missing.eff: cannot be read"
