19
60 600  300 360
4He 4He
2000
15
IBM
0 165
3.6
1.95 45
\ Si surface barrier detector at 165 degrees, 2 MeV 4He+
chu
pile ga 1e-6 0.5e-6
LLD 60
ZBL00
Si
450 1 -0.0002
