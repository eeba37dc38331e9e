19
60 580
4He 4He
2000
18
IBM
0 120
5.0
2.3 40
\ Second RBS detector at 120 degrees, same beam
chu
pile ga 1e-6 0.5e-6
LLD 60
ZBL00
