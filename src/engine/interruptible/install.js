// Puts these functions in the place of V8's, with the same names, lengths and attributes.
// Frames of this script are on no stack trace, and its functions' texts are those of native ones.
// The short way costs a call.

// From here on a call takes long enough to be worth interrupting. What V8 does with
// fewer elements or characters is over within some seconds, and much faster than step by step.
const manyElements = 2 ** 25;
const manyMoves = 2 ** 24;
const manyNewElements = 2 ** 20;
const manyComparisons = 2 ** 17;
const manyPieces = 2 ** 25;
const manyReplacements = 2 ** 24;
const longestText = 2 ** 29 - 24;

const isObject = (value) =>
    typeof value === 'object' ? value !== null : typeof value === 'function';

let longFunctions;
const long = () => (longFunctions ??= makeLongFunctions());

const claimedLength = (value) => lengthOf(value, lengthOfNumbers);

const isLong = (value) => claimedLength(value) > manyElements;
const isLongToMove = (value) => claimedLength(value) > manyMoves;

// Whether V8 adds it to others at once: what is no array but has a length may be endless when it is
// read.
const isSimpleToAdd = (value) => {
    if (!isObject(value)) return true;
    const length = claimedLength(value);
    if (!isArrayObject(value)) return length < 0;
    return length <= manyElements || getPrototypeOf(value) === arrays;
};

({
    concat: arrays.concat, copyWithin: arrays.copyWithin, every: arrays.every, fill: arrays.fill,
    filter: arrays.filter, flat: arrays.flat, flatMap: arrays.flatMap, forEach: arrays.forEach,
    includes: arrays.includes, indexOf: arrays.indexOf, lastIndexOf: arrays.lastIndexOf,
    map: arrays.map, reduce: arrays.reduce, reduceRight: arrays.reduceRight,
    reverse: arrays.reverse, shift: arrays.shift, slice: arrays.slice, some: arrays.some,
    sort: arrays.sort, splice: arrays.splice, unshift: arrays.unshift,
} = {
    concat(item) {
        let isSimple = isSimpleToAdd(this);
        for (let i = 0; isSimple && i < arguments.length; i++) {
            isSimple = isSimpleToAdd(arguments[i]);
        }
        return apply(isSimple ? concat : long().concat, this, arguments);
    },
    copyWithin(target, start) {
        return apply(isLongToMove(this) ? long().copyWithin : copyWithin, this, arguments);
    },
    every(callback) {
        return apply(isLong(this) ? long().every : every, this, arguments);
    },
    fill(value) {
        return apply(claimedLength(this) > manyNewElements ? long().fill : fill, this, arguments);
    },
    filter(callback) {
        return apply(isLong(this) ? long().filter : filter, this, arguments);
    },
    flat() {
        return apply(isLong(this) ? long().flat : flat, this, arguments);
    },
    flatMap(callback) {
        return apply(isLong(this) ? long().flatMap : flatMap, this, arguments);
    },
    forEach(callback) {
        return apply(isLong(this) ? long().forEach : forEach, this, arguments);
    },
    includes(element) {
        return apply(isLong(this) ? long().includes : includes, this, arguments);
    },
    indexOf(element) {
        return apply(isLong(this) ? long().indexOf : indexOf, this, arguments);
    },
    lastIndexOf(element) {
        return apply(isLong(this) ? long().lastIndexOf : lastIndexOf, this, arguments);
    },
    map(callback) {
        return apply(isLong(this) ? long().map : map, this, arguments);
    },
    reduce(callback) {
        return apply(isLong(this) ? long().reduce : reduce, this, arguments);
    },
    reduceRight(callback) {
        return apply(isLong(this) ? long().reduceRight : reduceRight, this, arguments);
    },
    reverse() {
        return apply(isLongToMove(this) ? long().reverse : reverse, this, arguments);
    },
    shift() {
        return apply(isLongToMove(this) ? long().shift : shift, this, arguments);
    },
    slice(start, end) {
        return apply(isLong(this) ? long().slice : slice, this, arguments);
    },
    some(callback) {
        return apply(isLong(this) ? long().some : some, this, arguments);
    },
    sort(comparator) {
        const length = claimedLength(this);
        if (length > manyElements) return apply(long().sort, this, arguments);
        if (length > manyComparisons && comparator === undefined) {
            return apply(sort, this, [long().compareTexts]);
        }
        return apply(sort, this, arguments);
    },
    splice(start, count) {
        return apply(isLongToMove(this) ? long().splice : splice, this, arguments);
    },
    unshift(item) {
        return apply(isLongToMove(this) ? long().unshift : unshift, this, arguments);
    },
});

({ from: Array.from } = {
    from(items) {
        // With a function it looks, and of arrays it knows the length.
        if (!isObject(items) || (arguments.length > 1 && arguments[1] !== undefined)) {
            return apply(from, this, arguments);
        }
        const isKnown = isArrayObject(items) || isTypedArray(items);
        const length = claimedLength(items);
        const mayBeLong = length > manyElements || (!isKnown && length >= 0);
        return apply(mayBeLong ? long().from : from, this, arguments);
    },
});

({ raw: String.raw } = {
    raw(template) {
        if (template === undefined || template === null) return apply(raw, this, arguments);
        const strings = ObjectOf(template).raw;
        if (claimedLength(strings) > manyPieces) return long().raw(strings, arguments);
        arguments[0] = { __proto__: null, raw: strings };
        return apply(raw, this, arguments);
    },
});

({ join: typedArrayPrototype.join } = {
    join(separator) {
        const isLongArray = isTypedArray(this) && numbersIn(this) > manyElements;
        return apply(isLongArray ? long().join : joinNumbers, this, arguments);
    },
});

// How long the text of a value is, or Infinity where only a script knows. A getter in the place of
// a text object's toString runs once more for this.
const lengthOfText = (value) => {
    if (typeof value === 'string') return value.length;
    if (!isObject(value) && typeof value !== 'bigint') return 0;
    let text;
    try {
        text = apply(valueOf, value, []);
    } catch {
        return Infinity;
    }
    return value.toString === toString && value[toPrimitive] === undefined ? text.length : Infinity;
};

// Whether V8's table of the pieces of all replacements may overflow, or take long to fill.
const replacesMuch = (text, replacement) => {
    if (text === undefined || text === null) return false;
    const length = lengthOfText(text);
    if (length > manyReplacements) return true;
    if (typeof replacement !== 'string') {
        return isObject(replacement) && typeof replacement !== 'function';
    }
    return length * replacement.length > manyReplacements &&
           length * long().countDollars(replacement) > manyReplacements;
};

const mayOverflow = (text) => lengthOfText(text) * 3 > longestText;

({
    match: texts.match, replace: texts.replace, replaceAll: texts.replaceAll, split: texts.split,
    toLocaleLowerCase: texts.toLocaleLowerCase, toLocaleUpperCase: texts.toLocaleUpperCase,
    toLowerCase: texts.toLowerCase, toUpperCase: texts.toUpperCase,
} = {
    match(expression) {
        if (lengthOfText(this) > manyPieces) return long().longMatch(this, expression);
        return apply(match, this, arguments);
    },
    replace(search, replacement) {
        if (replacesMuch(this, replacement)) return long().longReplace(this, search, replacement);
        return apply(replace, this, arguments);
    },
    replaceAll(search, replacement) {
        if (replacesMuch(this, replacement)) {
            return long().longReplaceAll(this, search, replacement);
        }
        return apply(replaceAll, this, arguments);
    },
    split(separator, limit) {
        if (lengthOfText(this) > manyPieces) return long().longSplit(this, separator, limit);
        return apply(split, this, arguments);
    },
    toLocaleLowerCase() {
        if (mayOverflow(this)) return long().convertCase(`${this}`, toLocaleLowerCase, arguments);
        return apply(toLocaleLowerCase, this, arguments);
    },
    toLocaleUpperCase() {
        if (mayOverflow(this)) return long().convertCase(`${this}`, toLocaleUpperCase, arguments);
        return apply(toLocaleUpperCase, this, arguments);
    },
    toLowerCase() {
        if (mayOverflow(this)) return long().convertCase(`${this}`, toLowerCase, []);
        return apply(toLowerCase, this, arguments);
    },
    toUpperCase() {
        if (mayOverflow(this)) return long().convertCase(`${this}`, toUpperCase, []);
        return apply(toUpperCase, this, arguments);
    },
});
