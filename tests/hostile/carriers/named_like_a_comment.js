// variable: A=5
// variable: //=1
// expect: //
'//'
