new Date(8.64e15 + 1).getTime()
