// variable: A=5
// expect: 5
(function () { return this.ouraccessor; }).call(A___A)
