# The tool lists its commands and refuses what it does not know.
expect_status 0 "$CLI" --help
for c in batch-show batch-check batch-save names; do has "$WORK/out" "  $c "; done
expect_status 2 "$CLI" no-such-command
has "$WORK/err" "unknown command no-such-command"
expect_status 2 "$CLI" --answers maybe batch-show x.spc
expect_status 2 "$CLI" batch-show
