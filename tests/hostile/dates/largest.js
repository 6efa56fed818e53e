// expect: +275760-09-13T00:00:00.000Z
new Date(8.64e15).toISOString()
