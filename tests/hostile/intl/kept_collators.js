// error: The script was ended: it needed more than the memory limit
{ let a = []; for (;;) a.push(new Intl.Collator('de')); }
