// next: fresh
// error: TypeError: IIF is not a function
IIF = LEN = ROUND = 5; IIF(1, 2, 3)
