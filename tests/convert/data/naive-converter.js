// The conversion written down a second time, as plainly as it can be: the engine's own regular
// expressions, one after the other over the whole text, and the operator scan step by step in
// place. Slow, and nothing of it is shared with the library.

function regex(pattern, replacement) {
    const compiled = new RegExp(pattern, 'gi');
    return text => text.replace(compiled, replacement);
}

function operator(op, replacement) {
    return text => replaceOperator(text, op, replacement);
}

function replaceOperator(text, op, replacement) {
    if (text.length === 0) return text;
    let inQuote = false;
    let i = 0;
    for (;;) {
        // In unsigned arithmetic a negative difference is a huge number, and no index equals it.
        if (text.length - op.length === i) return text;
        const c = text[i];
        if (c === '"' || c === "'") {
            if (i === 0) inQuote = true;
            else if (text[i - 1] !== '\\') inQuote = !inQuote;
        }
        if (inQuote) {
            i += 1;
            if (i >= text.length) return text;
            continue;
        }
        const part = text.substr(i, Math.min(text.length - i, op.length));
        if (part.length === op.length && part === op) {
            text = text.substring(0, i) + replacement + text.substring(i + op.length);
            i += op.length;
        }
        i += 1;
        if (i >= text.length) return text;
    }
}

const passes = [
    [  // operators
        regex('\\sNOT\\s|\\s.NOT.\\s', ' ! '),
        regex('\\sAND\\s|\\s.AND.\\s', ' && '),
        regex('\\sOR\\s|\\s.OR.\\s', ' || '),
        operator('>=', '=>'),
        operator('<>', '!='),
        operator('/=', '!='),
        operator('=<', '<='),
        operator('**', '^'),
        regex('\\sXOR\\s|\\s.XOR.\\s', ' XOR '),
        regex('(\\d+.?\\d*)\\s*[\\^]\\s*(\\d+.?\\d*)', ' Math.pow($1,$2) '),
        regex('\\sDIV\\s', ' / '),
        operator('\\', '/'),
        regex('TRUE', ' true '),
        regex('FALSE', ' false '),
    ],
    [  // mathematical functions
        regex('SIN\\s*\\(([^)]+)\\)', ' Math.sin($1) '),
        regex('COS\\s*\\(([^)]+)\\)', ' Math.cos($1) '),
        regex('(TAN|TG)\\s*\\(([^)]+)\\)', ' Math.tan($2) '),
        regex('COT\\s*\\(([^)]+)\\)', ' (1/Math.tan($1)) '),
        regex('(ASIN|ASN)\\s*\\(([^)]+)\\)', ' Math.asin($2) '),
        regex('(ACOS|ACS)\\s*\\(([^)]+)\\)', ' Math.acos($2) '),
        regex('(ATAN|ATN|ATG)\\s*\\(([^)]+)\\)', ' Math.atan($2) '),
        regex('ATAN2\\s*\\(([^,]+),([^)]+)\\)', ' Math.atan2($1,$2) '),
        regex('(LOG|LN)\\s*\\(([^)]+)\\)', ' LOG($2) '),
        regex('LOG10\\s*\\(([^)]+)\\)', ' LOG($1,10) '),
        regex('EXP\\s*\\(([^)]+)\\)', ' Math.exp($1) '),
        regex('(SQRT|SQR)\\s*\\(([^)]+)\\)', ' Math.sqrt($2) '),
        regex('MOD\\s*\\(([^,]+),([^)]+)\\)', ' ( $1 % $2 ) '),
        regex('POWER\\s*\\(([^,]+),([^)]+)\\)', ' Math.pow($1,Math.floor($2)) '),
        regex('RAND\\s*\\(([^)]*)\\)', ' Math.random($1) '),
        regex('(FLOOR|INT)\\s*\\(([^)]+)\\)', ' Math.floor($2) '),
        regex('(CEIL|CEILING)\\s*\\(([^)]+)\\)', ' Math.ceil($2) '),
        regex('ABS\\s*\\(([^)]+)\\)', ' Math.abs($1) '),
        regex('(SIGN|SGN)\\s*\\(([^)]+)\\)', ' SIGN($1) '),
        regex('(DEGREES|RTOD)\\s*\\(([^)]+)\\)', ' DEGREES($2) '),
        regex('(RADIANS|DTOR)\\s*\\(([^)]+)\\)', ' RADIANS($2) '),
    ],
    [  // miscellaneous functions
        regex('TYPE\\s*\\(([^)]+)\\)', ' typeof($1) '),
        regex('(EVAL|EVALUATE)\\s*\\(([^)]+)\\)', ' eval($2) '),
        regex('(IF|IIF)\\s*\\(', ' IIF('),
        regex('SWITCH\\s*\\(([^)]+)\\)', ' SWITCH($1) '),
    ],
    [  // string functions
        regex('TRIM\\s*\\(([^)]+)\\)', ' RTRIM($1) '),
        regex('(L|R) RTRIM', '$1TRIM'),
        regex('(REPLICATE|REPL|REPEAT)\\s*\\(([^,]+),([^)]+)\\)', ' REPEAT($2,$3) '),
        regex('(LEN|LENGTH)\\s*\\(([^)]+)\\)', ' LEN($2) '),
        regex('(UPPER|UCASE)\\s*\\(([^)]+)\\)', ' UPPERCASE($2) '),
        regex('(LOWER|LCASE)\\s*\\(([^)]+)\\)', ' LOWERCASE($2) '),
        regex('(CHAR|CHR)\\s*\\(([^)]+)\\)', ' CHAR($2) '),
        regex('(ASCII|ASC)\\s*\\(([^)]+)\\)', ' ASCII($2) '),
        regex('LEFT\\s*\\(([^,]+),([^)]+)\\)', ' LEFT($1, $2) '),
        regex('RIGHT\\s*\\(([^,]+),([^)]+)\\)', ' RIGHT($1, $2) '),
        regex('(SUBSTR|SUBS|SUBSTRING)\\s*\\(([^)]+)\\)', ' SUBSTR($2) '),
        regex('(STUFF|INSERT)\\s*\\(([^)]+)\\)', ' INSERT($2) '),
    ],
    [  // spelling of the built-in functions: mathematical, string, miscellaneous
        ...('ROUND LOG TRUNCATE FRAC EVEN ODD SIGN DEGREES RADIANS SQRT LOG10 ANTILOG POWER EXP ' +
            'LTRIM RTRIM ALLTRIM STR STRZ CONCAT REPEAT SPACE VAL CHAR RPAD LEFT RIGHT SUBSTR ' +
            'LOCATE OCCURS IOCCURS ISALPHA ISUPPER ISLOWER ISDIGIT ISXDIGIT ISSPACE ISGRAPH ' +
            'ISALNUM ISPRINT ISPUNCT ISCNTRL ISASCII REPLACE AT ATC RAT RATC INSERT CHRTRAN ' +
            'ASCII LOWERCASE UPPERCASE LEN ' +
            'IIF SWITCH COND MIN MAX BETWEEN BUMP INLIST LISTFUNCT')
            .split(' ')
            .map(name => regex(name + '\\s*\\(', name + '(')),
    ],
    [  // white space
        text => text.replace(new RegExp('\\s+', 'g'), ' '),
    ],
];

function applyPass(number, text) {
    return passes[number].reduce((current, rule) => rule(current), text);
}
