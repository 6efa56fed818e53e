// expect: 1
import('x').then(x => x); 1
