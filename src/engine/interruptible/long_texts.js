// The functions of texts, for texts so long that V8's tables of what was found would not
// end soon, or overflow.

// What `replacement` stands for, where `match` is one of a regular expression's or of a text's.
const substitute = (replacement, text, found, position, captures, groups) => {
    let result = '';
    let done = 0;
    for (;;) {
        const dollar = apply(indexOfText, replacement, ['$', done]);
        if (dollar < 0 || dollar + 1 >= replacement.length) break;
        result += apply(sliceText, replacement, [done, dollar]);
        const sign = replacement[dollar + 1];
        let used = 2;
        let part = '$' + sign;
        if (sign === '$') {
            part = '$';
        } else if (sign === '&') {
            part = found;
        } else if (sign === '`') {
            part = apply(sliceText, text, [0, position]);
        } else if (sign === "'") {
            part = apply(sliceText, text, [min(position + found.length, text.length)]);
        } else if (sign >= '0' && sign <= '9') {
            const next = dollar + 2 < replacement.length ? replacement[dollar + 2] : '';
            const both = next >= '0' && next <= '9' ? +sign * 10 + +next : 0;
            const hasTwoDigits = both > 0 && both <= captures.length;
            const index = hasTwoDigits ? both : +sign;
            if (index > 0 && index <= captures.length) {
                part = captures[index - 1] ?? '';
                used = hasTwoDigits ? 3 : 2;
            }
        } else if (sign === '<' && groups !== undefined) {
            const close = apply(indexOfText, replacement, ['>', dollar + 2]);
            if (close >= 0) {
                const value = groups[apply(sliceText, replacement, [dollar + 2, close])];
                part = value === undefined ? '' : `${value}`;
                used = close + 1 - dollar;
            }
        }
        result += part;
        done = dollar + used;
    }
    return result + apply(sliceText, replacement, [done]);
};

const asReplacement = (given) => (typeof given === 'function' ? given : `${given}`);

// What replaces `search`, which is a text and was found at `position`.
const replacementOf = (replacement, text, search, position) =>
    typeof replacement === 'function'
        ? `${replacement(search, position, text)}`
        : substitute(replacement, text, search, position, [], undefined);

// As many pieces as `limit` allows.
const mostPieces = (limit) => (limit === undefined ? 2 ** 32 - 1 : +limit >>> 0);

const execute = (expression, text) => {
    const method = expression.exec;
    if (typeof method !== 'function') return apply(exec, expression, [text]);
    const result = apply(method, expression, [text]);
    if (result !== null && !isObject(result)) {
        throw new TypeErrorOf(
            'RegExp exec method returned something other than an Object or null');
    }
    return result;
};

// Where a global expression goes on after it has found nothing but a place.
const advance = (expression, text, isUnicode) => {
    const index = toLength(expression.lastIndex);
    expression.lastIndex = index + (isUnicode ? widthAt(text, index) : 1);
};

// How many code units the character at `index` has.
const widthAt = (text, index) => {
    if (index + 1 >= text.length) return 1;
    return apply(codePointAt, text, [index]) > 0xffff ? 2 : 1;
};

// Newer versions of V8 ask an expression for its flags, where older ones ask for two of them.
let asksForFlags = false;
apply(matchByExpression, {
    __proto__: null,
    get flags() { asksForFlags = true; return ''; },
    exec: () => null,
}, ['']);

const matchAllOf = (expression, text) => {
    const flags = asksForFlags ? `${expression.flags}` : '';
    const has = (flag) => apply(indexOfText, flags, [flag]) !== -1;
    if (asksForFlags ? !has('g') : !expression.global) return execute(expression, text);
    const isUnicode = asksForFlags ? has('u') || has('v') : !!expression.unicode;
    expression.lastIndex = 0;
    const found = [];
    let count = 0;
    for (;;) {
        const result = execute(expression, text);
        if (result === null) return count === 0 ? null : found;
        const all = `${result[0]}`;
        create(found, count++, all);
        if (all === '') advance(expression, text, isUnicode);
    }
};

const replaceMatches = (expression, text, given) => {
    const replacement = asReplacement(given);
    const isFunction = typeof replacement === 'function';
    const isGlobal = !!expression.global;
    let isUnicode = false;
    if (isGlobal) {
        isUnicode = !!expression.unicode;
        expression.lastIndex = 0;
    }
    const results = list();
    let count = 0;
    for (;;) {
        const result = execute(expression, text);
        if (result === null) break;
        results[count++] = result;
        if (!isGlobal) break;
        if (`${result[0]}` === '') advance(expression, text, isUnicode);
    }
    let accumulated = '';
    let next = 0;
    for (let i = 0; i < count; i++) {
        const result = results[i];
        const captureCount = max(toLength(result.length) - 1, 0);
        const found = `${result[0]}`;
        const position = max(min(toInteger(result.index), text.length), 0);
        const captures = list();
        for (let n = 1; n <= captureCount; n++) {
            const capture = result[n];
            captures[n - 1] = capture === undefined ? undefined : `${capture}`;
        }
        const groups = result.groups;
        let part;
        if (isFunction) {
            const given = list();
            given[0] = found;
            for (let n = 0; n < captureCount; n++) given[n + 1] = captures[n];
            given[captureCount + 1] = position;
            given[captureCount + 2] = text;
            if (groups !== undefined) given[captureCount + 3] = groups;
            part = `${apply(replacement, undefined, given)}`;
        } else {
            if (groups === null) {
                throw new TypeErrorOf('Cannot convert undefined or null to object');
            }
            const named = groups === undefined ? undefined : ObjectOf(groups);
            part = substitute(replacement, text, found, position, captures, named);
        }
        if (position >= next) {
            accumulated += apply(sliceText, text, [next, position]) + part;
            next = position + found.length;
        }
    }
    return next >= text.length ? accumulated : accumulated + apply(sliceText, text, [next]);
};

const replaceTexts = (text, search, given) => {
    const replacement = asReplacement(given);
    const step = max(search.length, 1);
    let result = '';
    let next = 0;
    let position = apply(indexOfText, text, [search, 0]);
    while (position >= 0) {
        const part = replacementOf(replacement, text, search, position);
        result += apply(sliceText, text, [next, position]) + part;
        next = position + search.length;
        position = position + step > text.length
                       ? -1
                       : apply(indexOfText, text, [search, position + step]);
    }
    return next >= text.length ? result : result + apply(sliceText, text, [next]);
};

const replaceFirst = (text, search, given) => {
    const replacement = asReplacement(given);
    const position = apply(indexOfText, text, [search, 0]);
    if (position < 0) return text;
    const part = replacementOf(replacement, text, search, position);
    return apply(sliceText, text, [0, position]) + part +
           apply(sliceText, text, [position + search.length]);
};

const splitByExpression = (expression, text, limit) => {
    let constructor = expression.constructor;
    if (constructor === undefined) {
        constructor = RegExpOf;
    } else if (!isObject(constructor)) {
        throw new TypeErrorOf('The .constructor property is not an object');
    } else {
        constructor = constructor[species] ?? RegExpOf;
    }
    const flags = `${expression.flags}`;
    const isUnicode = apply(indexOfText, flags, ['u', 0]) >= 0;
    const isSticky = apply(indexOfText, flags, ['y', 0]) >= 0;
    const splitter = new constructor(expression, isSticky ? flags : flags + 'y');
    const found = [];
    let count = 0;
    const most = mostPieces(limit);
    if (most === 0) return found;
    if (text === '') {
        if (execute(splitter, text) === null) create(found, 0, text);
        return found;
    }
    let begin = 0;
    let at = 0;
    while (at < text.length) {
        splitter.lastIndex = at;
        const result = execute(splitter, text);
        const end = result === null ? begin : min(toLength(splitter.lastIndex), text.length);
        if (end === begin) {
            at += isUnicode ? widthAt(text, at) : 1;
            continue;
        }
        create(found, count++, apply(sliceText, text, [begin, at]));
        if (count === most) return found;
        begin = end;
        const captureCount = max(toLength(result.length) - 1, 0);
        for (let n = 1; n <= captureCount; n++) {
            create(found, count++, result[n]);
            if (count === most) return found;
        }
        at = begin;
    }
    create(found, count, apply(sliceText, text, [begin]));
    return found;
};

const splitByText = (text, separator, limit) => {
    const most = mostPieces(limit);
    const between = `${separator}`;
    const found = [];
    if (most === 0) return found;
    let count = 0;
    if (between === '') {
        for (; count < text.length && count < most; count++) create(found, count, text[count]);
        return found;
    }
    let begin = 0;
    for (;;) {
        const end = apply(indexOfText, text, [between, begin]);
        create(found, count++, apply(sliceText, text, end < 0 ? [begin] : [begin, end]));
        if (end < 0 || count === most) return found;
        begin = end + between.length;
    }
};

// Converts the case of a text whose result may be longer than a text can be, which V8 does not
// expect. A piece at a time shows how long it gets.
const convertCase = (text, native, given) => {
    if (text.length * 3 <= longestText) return apply(native, text, given);
    const locales = given.length === 0 ? [] : [getCanonicalLocales(given[0])];
    const piece = 2 ** 20;
    let length = 0;
    for (let begin = 0; begin < text.length;) {
        let end = min(begin + piece, text.length);
        const last = apply(charCodeAt, text, [end - 1]);
        if (last >= 0xd800 && last <= 0xdbff && end < text.length) end++;
        length += apply(native, apply(sliceText, text, [begin, end]), locales).length;
        begin = end;
    }
    if (length > longestText) throw new RangeErrorOf('Invalid string length');
    return apply(native, text, locales);
};

// How much a replacement makes of one match, at least.
const countDollars = (text) => {
    let count = 1;
    let at = apply(indexOfText, text, ['$', 0]);
    for (; at >= 0; at = apply(indexOfText, text, ['$', at + 1])) count++;
    return count;
};

// The object's method for `symbol`, or undefined. V8's own function says what is wrong with
// one that cannot be called.
const methodOf = (object, symbol, native) => {
    if (object === undefined || object === null) return undefined;
    const method = object[symbol] ?? undefined;
    if (method !== undefined && typeof method !== 'function') {
        apply(native, '', [{ [symbol]: method }]);
    }
    return method;
};

const isExpression = (value) => {
    if (!isObject(value)) return false;
    const claimed = value[matchSymbol];
    return claimed === undefined ? isRegExp(value) : !!claimed;
};

const longMatch = (text, expression) => {
    const method = methodOf(expression, matchSymbol, match);
    if (method === matchByExpression && isObject(expression)) {
        return matchAllOf(expression, `${text}`);
    }
    if (method !== undefined) return apply(method, expression, [text]);
    const subject = `${text}`;
    return apply(match, subject, [expression === undefined ? undefined : `${expression}`]);
};

const replaceByMethod = (text, search, replacement, replaceText) => {
    const method = methodOf(search, replaceSymbol, replace);
    if (method === replaceByExpression && isObject(search)) {
        return replaceMatches(search, `${text}`, replacement);
    }
    if (method !== undefined) return apply(method, search, [text, replacement]);
    return replaceText(`${text}`, `${search}`, replacement);
};

const longReplace = (text, search, replacement) =>
    replaceByMethod(text, search, replacement, replaceFirst);

const longReplaceAll = (text, search, replacement) => {
    if (isExpression(search)) {
        const { flags } = search;
        if (flags === undefined || flags === null) return apply(replaceAll, flags, []);
        if (apply(indexOfText, `${flags}`, ['g', 0]) < 0) {
            return apply(replaceAll, '', [new RegExpOf('')]);
        }
    }
    return replaceByMethod(text, search, replacement, replaceTexts);
};

const longSplit = (text, separator, limit) => {
    if (separator === undefined) return apply(split, text, [separator, limit]);
    const method = methodOf(separator, splitSymbol, split);
    if (method === splitByExpressionOfEngine && isObject(separator)) {
        return splitByExpression(separator, `${text}`, limit);
    }
    if (method !== undefined) return apply(method, separator, [text, limit]);
    return splitByText(`${text}`, separator, limit);
};

const longTexts = { convertCase, countDollars, longMatch, longReplace, longReplaceAll, longSplit };
