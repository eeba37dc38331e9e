r1.dat	10.5	rbs165.geo	sio2si	1
r2.dat	10.5	rbs120
r3.dat	12	rbs165	thickox
e1.dat	4.25	erda30	(1)
n;1|x&.dat	8	nra150
