// next: fresh
// then: run reset run
// expect: 1
let once = 1; once
