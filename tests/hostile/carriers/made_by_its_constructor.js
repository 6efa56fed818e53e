// variable: A=5
// expect: undefined
{ let c = new A___A.constructor(); String(c.ouraccessor); }
