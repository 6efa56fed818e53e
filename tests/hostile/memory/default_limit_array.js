// error: The script was ended: it needed more than the memory limit of 
{ let a = []; for (;;) a.push({ x: a.length }); }
