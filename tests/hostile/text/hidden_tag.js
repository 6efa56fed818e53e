// error: Error: tag
({ get [Symbol.toStringTag]() { throw new Error('tag'); } })
