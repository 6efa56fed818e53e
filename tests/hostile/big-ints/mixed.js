// error: TypeError: Cannot mix BigInt and other types
1n + 1
