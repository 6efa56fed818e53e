// error: Error in line: 1
{ let { proxy, revoke } = Proxy.revocable({}, {}); revoke(); throw proxy; }
