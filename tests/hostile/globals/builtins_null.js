// next: fresh
// error: TypeError
Object = Function = Array = String = Error = TypeError = null; null.x
