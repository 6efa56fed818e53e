// variable: A=5
// error: TypeError: Cannot perform 'get' on a proxy that has been revoked
{ let { proxy, revoke } = Proxy.revocable(A___A, {}); revoke(); proxy.ouraccessor; }
