// error: Error: 1
eval('throw new Error(1) //# sourceMappingURL=data:application/json;base64,AAAA')
