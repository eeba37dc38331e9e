s1rbs165.dat  10.5  rbs165  sio2si  1  
s1rbs120.dat  10.5  rbs120
s2rbs165.dat  12  rbs165  thickox  
s2erda.dat  4.25  erda30  (1)
s2nra.dat  8  nra150
s3rbs165.dat  9.75  rbs165  tio2si  
s3rbs120.dat  9.75  rbs120  [1]
s3pixe.dat  9.75  pixe135
