// error: Regular expression too large
new RegExp('('.repeat(1e6))
