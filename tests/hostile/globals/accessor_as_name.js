// next: fresh
var ouraccessor = 5; String(ouraccessor)
