// next: fresh
// then: run reset run
// expect: function
class Once { } typeof Once
