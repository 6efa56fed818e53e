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

// The engine's own function, on an empty array, says what is wrong with a callback.
const demandCallback = (callback, native) => {
    if (typeof callback !== 'function') apply(native, [], [callback]);
};
