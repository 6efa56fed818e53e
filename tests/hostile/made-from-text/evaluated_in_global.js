// expect: 5
(0, eval)('var made = 5'); made
