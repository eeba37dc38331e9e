a1.dat   10.5  geo1  str1  
a2.dat   3  geo2
b1.dat  -20  geo3  str2   3  
b2.dat   4  geo3  [1]
b3.dat   5  geo4  <1>
c1.dat   .25  geo5  str3  
