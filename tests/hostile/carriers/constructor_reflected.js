// variable: A=5
// expect: undefined
String(Reflect.construct(A___A.constructor, [], Array).ouraccessor)
