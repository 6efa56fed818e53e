// error: SyntaxError: Unexpected end of JSON input
JSON.parse('{"a":')
