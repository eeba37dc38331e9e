19
600 760
16O 2H 1H 17O 1917 1H
900
20
IBM
0 150
10
3.3 8
strag gauss
\ 16O(d,p0) and (d,p1) at 150 degrees; 12 um Mylar stops the scattered deuterons
foil 115000 1000
C 10 H 8 O 4 9.6
nores
ZBL00
