// error: Error: mine
+{ valueOf() { throw new Error('mine'); } }
