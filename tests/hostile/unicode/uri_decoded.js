// error: URIError: URI malformed
decodeURIComponent('%f0%9f%98')
