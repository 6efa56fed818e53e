new Date('1'.repeat(1e6)).getTime()
