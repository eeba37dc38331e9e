19
100 330
4He 1H
2000
25  0.02
g
75 30 75
1.2
2.0 30
\ Grazing ERDA of hydrogen: 75 degrees in and out, recoils through a 6 um Mylar stopper foil
foil 57600 500
C 10 H 8 O 4 9.6
chu
ZBL00
