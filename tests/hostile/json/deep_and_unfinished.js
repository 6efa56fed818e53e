// error: SyntaxError: Unexpected end of JSON input
JSON.parse('['.repeat(2 ** 22))
