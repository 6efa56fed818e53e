// expect: undefined5
// variable: A=5
class X extends A___A.constructor { } String(new X().ouraccessor) + A
