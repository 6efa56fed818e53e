// What the long functions are made of.

const toInteger = (value) => {
    const number = +value;
    return number !== number ? 0 : trunc(number) + 0;
};

const toLength = (value) => max(min(toInteger(value), largestLength), 0);

// An index counted from the end when negative, within 0 and `length`.
const toIndex = (value, length) => {
    const index = toInteger(value);
    return index < 0 ? max(length + index, 0) : min(index, length);
};

const toEnd = (value, length) => (value === undefined ? length : toIndex(value, length));

const create = (object, key, value) =>
    defineProperty(object, key, {
        __proto__: null, value, writable: true, enumerable: true, configurable: true,
    });

// What is at `from`, or its absence, to `to`.
const move = (object, from, to) => {
    if (from in object) {
        object[to] = object[from];
    } else {
        delete object[to];
    }
};

// Adds the elements of `source`, and those of arrays in it, to `target` from `to` on. Returns where it
// ends.
const appendFlattened = (target, to, source, length, levels) => {
    for (let k = 0; k < length; k++) {
        if (!(k in source)) continue;
        const value = source[k];
        if (levels > 0 && isArray(value)) {
            to = appendFlattened(target, to, value, toLength(value.length), levels - 1);
        } else {
            create(target, to++, value);
        }
    }
    return to;
};

// An array of the library's own, which runs no setters that a script has put on prototypes.
const list = () => setPrototypeOf([], null);

const speciesCreate = (original, length) => {
    let constructor;
    if (isArray(original)) {
        constructor = original.constructor;
        if (isObject(constructor)) constructor = constructor[species] ?? undefined;
    }
    if (constructor === undefined) return new ArrayOfScript(length);
    if (!isConstructor(constructor)) {
        throw new TypeErrorOf('object.constructor[Symbol.species] is not a constructor');
    }
    return new constructor(length);
};

// V8's own function, on an empty array, says what is wrong with a callback.
const demandCallback = (callback, native) => {
    if (typeof callback !== 'function') apply(native, [], [callback]);
};
