// error: TypeError: 'get' on proxy: property 'prototype' is a read-only and non-configura
class X extends new Proxy(Object, { get: (t, k) => k === 'prototype' ? null : t[k] }) { } new X() instanceof Object
