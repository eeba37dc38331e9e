28
100 700
4He X
2000
0.16
IBM
0 135
25
SiLi135.cal 5
foil 2
309000 Be
1000 Si
\ Si(Li) X-ray detector at 135 degrees: 25 um Be window and a Si dead layer
