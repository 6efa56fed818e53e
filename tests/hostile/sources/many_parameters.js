// generate: 1 '(function(){return arguments.length})(0'
// generate: 60000 ',1'
// generate: 1 ')'
// expect: 60001

