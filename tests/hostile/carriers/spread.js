// variable: A=5
// expect: {"ouraccessor":5}
JSON.stringify({ ...A___A })
