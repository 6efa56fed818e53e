// error: TypeError
{ let a = new Uint8Array(8); a.constructor = { [Symbol.species]: function () { return new Uint8Array(1); } }; a.map(x => x); }
