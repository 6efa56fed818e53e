// error: TypeError: Class constructor
(class { })
