// error: TypeError
[1].map(() => [1].map(() => 'x'.replace(/x/, () => JSON.parse('[1]', () => null.x))))
