// expect: true
{ let f = new Float64Array(1), u = new Uint32Array(f.buffer); u[1] = 0xfff7ffff; u[0] = 0xffffffff; String(isNaN(f[0])); }
