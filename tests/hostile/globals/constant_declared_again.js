// next: fresh
// then: run reset run
// expect: 1
const once = 1; once
