// variable: A=5
// expect: 5
Object.create(A___A).ouraccessor === undefined || Object.create(A___A).ouraccessor
