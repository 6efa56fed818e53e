'xNaNx' + 1
