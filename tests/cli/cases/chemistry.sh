# Molecules, element names, thickness units and the number form, on the shipped tables.
ENGINE="$EXAMPLES/engine"
expect_status 0 "$CLI" --engine-dir "$ENGINE" --json molecule "( Si 1 O 2 ) 0.6 ( Al 2 O 3 ) ?=0.4 3.9"
has "$WORK/out" '"code":0'
has "$WORK/out" '"molText":"( Si 1 O 2 ) .6 ( Al 2 O 3 ) ?=.4"'
has "$WORK/out" '"molTextWithDensity":"( Si 1 O 2 ) .6 ( Al 2 O 3 ) ?=.4 3.9"'
has "$WORK/out" '"name":"Al2O3"'
has "$WORK/out" '"fit":true'
has "$WORK/out" '"messages":[]'

# A repaired string: code 1024, the boxes in order in the transcript.
expect_status 1 "$CLI" --engine-dir "$ENGINE" --json molecule "(Si 1 O 2) 1 (Al 2) 2"
has "$WORK/out" '"code":1024'
has "$WORK/out" '"text":"( Si 1 O 2 ) 1 ( Al 2 ) 2"'
has "$WORK/out" '"molText":"( Si 1 O 2 ) 1 ( Al 1 ) 2"'
has "$WORK/out" '"title":"Parse_Mol: parenthesis error"'
has "$WORK/err" "[Parse_Mol: fatal parenthesis error] FATAL: parentheses must be preceded by a space: error in molecule '( Si 1 O 2  ) 1 ( Al 2) 2'"

# Parse_SMol alone, and a string the engine could not take.
expect_status 0 "$CLI" --engine-dir "$ENGINE" molecule --smol Si 2.3
has "$WORK/out" "code -1, position 0"
expect_status 1 "$CLI" --engine-dir "$ENGINE" molecule "( ( Si 1 ) 1 ) 1"
has "$WORK/out" "code 256"
has "$WORK/err" "FATAL: nesting parentheses is not allowed: error in molecule '( ( Si 1 ) 1 ) 1'"
expect_status 1 "$CLI" --engine-dir "$ENGINE" molecule Np
has "$WORK/err" "[halvo-cli Parse_Mol] Unexpected error in Parse_Mol: Subscript out of range"

# Element names: the isotope message names the engine directory.
expect_status 1 "$CLI" --engine-dir "$ENGINE" --json element 28si T nn 99Si
has "$WORK/out" '"name":"28Si","Z":14,"A":28'
has "$WORK/out" '"tableButton":93'
has "$WORK/out" '"analysisKind":3'
has "$WORK/err" "Isotope 99 in element Si not found in stable isotope list.  Please either correct input or extend allowed isotopes in $ENGINE\\isotopes.dat"

# Missing tables are reported by the file check; the symbols are still known, with no numbers.
expect_status 0 "$CLI" --engine-dir "$WORK" element Si
has "$WORK/err" "[FileExists] File $WORK/isotopes.dat does not exist"
has "$WORK/out" 'name "Si" Z 14 A 0 mass 0'


# Thickness: 100 nm of SiO2 at 2.2e22 atoms/cc is 220 TFU.
expect_status 0 "$CLI" --engine-dir "$ENGINE" thickness 100 nm tfu --molecule "Si 1 O 2 2.2"
has "$WORK/out" "tfu  220.0000"
expect_status 0 "$CLI" --json thickness 499.6026 tfu nm --density 4.996026 --mass 28.0855
has "$WORK/out" '"nm":100'
expect_status 2 "$CLI" thickness 1 furlong --density 1 --mass 1

expect_status 0 "$CLI" format-number 0 3
has "$WORK/out" "0.000"
expect_status 0 "$CLI" --json format-number 2442.5
has "$WORK/out" '"text":"2442.5","decimals":0'
