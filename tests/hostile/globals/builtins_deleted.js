// next: fresh
// error: TypeError
delete globalThis.Object; delete globalThis.Function; delete globalThis.Error; null.x
