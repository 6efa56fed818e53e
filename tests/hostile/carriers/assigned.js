// expect: 5
// variable: A=5
String(Object.assign({}, A___A).ouraccessor)
