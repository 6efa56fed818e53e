// variable: A=5
delete A___A.ouraccessor; String(A___A.ouraccessor)
