// limit: 100 ms
// error: AggregateError: many
throw new AggregateError([new Error('a'), { toString() { for (;;); } }], 'many')
