// error: SyntaxError: Cannot use 'import.meta' outside a module
import.meta
