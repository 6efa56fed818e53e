ROUND(10.523, 2)          // expect: 10.52
typeof ROUND(10.523, 2)   // expect: string
ROUND(10.523, -2)         // expect: 10.52
ROUND(1.005, 2)           // expect: 1.00
ROUND(2.5)                // expect: 3
ROUND(2.5, 0)             // expect: 3
ROUND('2.5', 1)           // expect error: TypeError: num.toFixed is not a function
ROUND()                   // expect error: ReferenceError: ROUND missing argument
LOG(10.5, 10)             // expect: 1.021189299069938
LOG(Math.E, 0)            // expect: 1
LOG(Math.E)               // expect: 1
LOG()                     // expect error: ReferenceError: LOG missing argument
TRUNCATE(-2.5, 0)         // expect: -2
TRUNCATE(-2, 3)           // expect: -2
TRUNCATE(1.999, -1)       // expect: 1.9
TRUNCATE('text', 3)       // expect: text
FRAC(-2.123)              // expect: -0.123
FRAC(-2)                  // expect: 0
FRAC(1e-7)                // expect: 0
EVEN(1.5)                 // expect: false
ODD(1.5)                  // expect: false
ODD(-3)                   // expect: true
SIGN(-0.5)                // expect: -1
SIGN('text')              // expect: 1
DEGREES(3.14159)          // expect: 179.99984796050427
RADIANS(180)              // expect: 3.141592653589793
SQRT(-1)                  // expect: NaN
LOG10(10)                 // expect: 1
ANTILOG(2.5)              // expect: 316.2277660168379
POWER(8, 1/3)             // expect: 2
EXP(0)                    // expect: 1
