class X extends new Proxy(Object, { get: (t, k) => k === 'prototype' ? null : t[k] }) { } new X() instanceof Object
