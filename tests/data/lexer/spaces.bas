
   
	
  	 print  
 ab  c
   