a1.dat	10.5	geo1.geo	str1.str	0
a2.dat	3	geo2
b1.dat	-2e1	geo3	str2	7
b2.dat	4	geo3	[1]
b3.dat	5	geo4.GEO	<1>

short line
c1.dat	.25	geo5	str3
