// error: \ud800
throw '\ud800'
