// error: The script was ended: it needed more than the memory limit of 
{ let l = null; for (;;) l = { l, v: [1] }; }
