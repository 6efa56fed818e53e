// error: SyntaxError: Cannot use import statement outside a module
import x from 'y'
