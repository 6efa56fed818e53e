// error: URIError: URI malformed
encodeURIComponent('\ud800')
