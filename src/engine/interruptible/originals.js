// All of V8's functions that are used later. They are saved while the context is new, because a
// script may replace them.

const { apply } = Reflect;
const { defineProperty, getOwnPropertyDescriptor, getPrototypeOf, setPrototypeOf } = Object;
const { max, min, trunc } = Math;
const { isArray, from } = Array;
const { iterator, match: matchSymbol, replace: replaceSymbol, species, split: splitSymbol,
        isConcatSpreadable, toPrimitive } = Symbol;
const ArrayOfScript = Array;
const ObjectOf = Object;
const RangeErrorOf = RangeError;
const TypeErrorOf = TypeError;
const largestLength = Number.MAX_SAFE_INTEGER;
const arrays = Array.prototype;
const texts = String.prototype;
const { concat, copyWithin, every, fill, filter, flat, flatMap, forEach, includes, indexOf,
        lastIndexOf, map, reduce, reduceRight, reverse, shift, slice, some, sort, splice,
        unshift } = arrays;
const { charCodeAt, codePointAt, indexOf: indexOfText, match, replace, replaceAll,
        slice: sliceText, split, toLocaleLowerCase, toLocaleUpperCase, toLowerCase, toString,
        toUpperCase, valueOf } = texts;
const { exec, [matchSymbol]: matchByExpression, [replaceSymbol]: replaceByExpression,
        [splitSymbol]: splitByExpressionOfEngine } = RegExp.prototype;
const RegExpOf = RegExp;
const { raw } = String;
const typedArrayPrototype = Uint8Array.prototype.__proto__;
const { join: joinNumbers } = typedArrayPrototype;
const { get: lengthOfNumbers } = getOwnPropertyDescriptor(typedArrayPrototype, 'length');
const numbersIn = (array) => apply(lengthOfNumbers, array, []);
const { getCanonicalLocales } = Intl;
