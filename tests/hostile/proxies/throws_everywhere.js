// error: Error: trap
{ let h = new Proxy({}, { get() { throw new Error('trap'); } }); let p = new Proxy({}, h); `${p}`; }
