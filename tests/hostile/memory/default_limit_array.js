// error: The script was ended: it needed more than the memory limit of 
{ let a = []; for (;;) a.push(new Array(1000).fill(a.length)); }
