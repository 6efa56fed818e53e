// error: The script was ended: it needed more than the memory limit of 
{ let s = 'x', a = []; for (;;) { s += s.length; a.push(s); } }
