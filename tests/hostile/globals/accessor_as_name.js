// next: fresh
// expect: undefined
var ouraccessor = 5; String(ouraccessor)
