// Subjects that only a script can tell the length of are taken for endless ones.
var subjects = {
    array: function () { return [3, 1, 2]; },
    holes: function () { return [5, , 'b', , undefined, 5]; },
    nothing: function () { return []; },
    nested: function () { return [1, [2, [3, [4]]], , [[]]]; },
    arrayLike: function () { return { 0: 'a', 2: 'c', length: 4 }; },
    longerThanTold: function () { return { 0: 1, 1: 2, 2: 3, length: 2 }; },
    textLength: function () { return { 0: 1, 1: 2, length: '2.9' }; },
    negative: function () { return { 0: 1, length: -1 }; },
    notANumber: function () { return { 0: 1, length: NaN }; },
    withoutLength: function () { return { 0: 1 }; },
    frozen: function () { return Object.freeze([2, 1]); },
    sealed: function () { return Object.seal([2, 1]); },
    ownSpecies: function () {
        var made = [2, 1];
        made.constructor = { [Symbol.species]: function Made(n) { this.length = n; } };
        return made;
    },
    noSpecies: function () {
        var made = [2, 1];
        made.constructor = { [Symbol.species]: null };
        return made;
    },
    badSpecies: function () {
        var made = [2, 1];
        made.constructor = { [Symbol.species]: function () {}.bind.call(() => 1) };
        return made;
    },
    arrowSpecies: function () {
        var made = [2, 1];
        made.constructor = { [Symbol.species]: () => 1 };
        return made;
    },
    numberSpecies: function () {
        var made = [2, 1];
        made.constructor = { [Symbol.species]: 5 };
        return made;
    },
    noConstructor: function () {
        var made = [2, 1];
        made.constructor = undefined;
        return made;
    },
};

var values = {
    one: 1,
    text: 'a',
    minus: -1,
    minusTwo: -2.5,
    two: 2,
    none: undefined,
    notANumber: NaN,
    endless: Infinity,
    minusEndless: -Infinity,
    big: 5n,
    symbol: Symbol.iterator,
    nothing: null,
    hostile: { valueOf: function () { log.push('valueOf'); return 1; } },
    failing: { valueOf: function () { throw new Error('hostile'); } },
};

var callbacks = {
    isOne: function (value, index, object) {
        log.push('call ' + text(this === globalThis) + ' ' + text(value) + ' ' + index + ' ' + arguments.length);
        return value === 1;
    },
    strict: function () {
        'use strict';
        log.push('call ' + text(this));
        return [this, [1]];
    },
    sum: function (sum, value, index) {
        log.push('sum ' + text(sum) + ' ' + text(value) + ' ' + index + ' ' + arguments.length);
        return value;
    },
    fails: function () { throw new RangeError('callback'); },
    isNone: 5,
    isMissing: undefined,
    isObject: {},
};

var shrinks = function (value, index, object) {
    object.length = 1;
    return true;
};

// An accessor in the place of its length makes any object one of unknown length.
var unknownLength = function (object) {
    if (Array.isArray(object)) return new Proxy(object, {});
    var length = object.length;
    Object.defineProperty(object, 'length', {
        get: function () { log.push('length'); return length; },
        set: function (value) { log.push('length = ' + value); length = value; },
        enumerable: false,
        configurable: true,
    });
    return object;
};

var call = function (method, given) {
    for (var name in subjects) {
        var plain = subjects[name]();
        note(method + ' of unknown ' + name,
             function () { return Array.prototype[method].apply(unknownLength(plain), given); }, plain);
        var other = subjects[name]();
        note(method + ' of watched ' + name,
             function () { return Array.prototype[method].apply(watched(other), given); }, other);
    }
};

['forEach', 'every', 'some', 'map', 'filter', 'flatMap'].forEach(function (method) {
    for (var name in callbacks) {
        call(method, [callbacks[name]]);
        call(method, [callbacks[name], 'receiver']);
    }
    call(method, []);
    call(method, [shrinks]);
});
['reduce', 'reduceRight'].forEach(function (method) {
    for (var name in callbacks) {
        call(method, [callbacks[name]]);
        call(method, [callbacks[name], 'initial']);
        call(method, [callbacks[name], undefined]);
    }
    call(method, []);
});
['indexOf', 'lastIndexOf', 'includes'].forEach(function (method) {
    call(method, []);
    [1, 5, 2, 'c', NaN, undefined].forEach(function (wanted) {
        call(method, [wanted]);
        for (var name in values) call(method, [wanted, values[name]]);
    });
});
['fill', 'copyWithin', 'slice', 'splice'].forEach(function (method) {
    call(method, []);
    for (var first in values) {
        call(method, [values[first]]);
        for (var second in values) {
            call(method, [values[first], values[second]]);
        }
        call(method, [values[first], 1, 2]);
        call(method, [values[first], 1, -1]);
        call(method, [values[first], 0, 'x', 'y', 'z']);
    }
    call(method, [0, 0, 1]);
    call(method, [1, 0, 3]);
    call(method, [0, 1, 'p', 'q']);
});
['reverse', 'shift', 'unshift', 'concat', 'flat'].forEach(function (method) {
    call(method, []);
    call(method, [1]);
    call(method, ['x', [7, , 8]]);
    call(method, [Infinity]);
    call(method, [-1]);
});
call('concat', [unknownLength({ 0: 'p', length: 2, [Symbol.isConcatSpreadable]: true })]);
call('concat', [watched([1, , 2]), watched({ length: 1, 0: 's', [Symbol.isConcatSpreadable]: 1 })]);
call('flat', [2]);
call('sort', []);
call('sort', [undefined]);
call('sort', [null]);
call('sort', [5]);
call('sort', [function (a, b) { log.push(text(a) + '?' + text(b)); return a < b ? 1 : -1; }]);
call('sort', [function () { throw 'comparator'; }]);

// Lengths at the limit of what a number can count.
var most = Number.MAX_SAFE_INTEGER;
[
    ['unshift', 1], ['splice', most - 1, 0, 'p'], ['splice', most - 1, 1, 'p'], ['splice', -2], ['splice', -2, 1],
    ['concat', 1], ['fill', 1, -2], ['fill', 1, 2, 3], ['indexOf', 'x', -2], ['indexOf', 'y', most - 2],
    ['lastIndexOf', 'y'], ['lastIndexOf', 'none', -most + 1], ['slice', -1], ['slice', most - 2, -1], ['slice', 1, 3],
    ['includes', 'x', -1], ['copyWithin', 2, -2], ['copyWithin', -2, 0], ['map', text], ['sort', 5],
].forEach(function (one) {
    var huge = { length: most, [most - 1]: 'x', [most - 2]: 'y', 0: 'first' };
    note('longest ' + text(one), function () { return Array.prototype[one[0]].apply(huge, one.slice(1)); }, huge);
});

// More elements than V8's own functions are left to.
var sparse = function () {
    var made = [];
    made[2 ** 25 + 3] = 'last';
    made[7] = 'seventh';
    made[1] = 'x';
    return made;
};
var show = function (array) {
    if (!Array.isArray(array)) return array;
    return array.length + ': ' + Object.keys(array).map(function (k) { return k + '=' + array[k]; });
};
[
    ['slice', 2], ['splice', 1, 1, 'p', 'q'], ['sort'], ['map', function (value) { return value + '!'; }],
].forEach(function (one) {
    var array = sparse();
    note('sparse ' + one[0], function () { return show(array[one[0]].apply(array, one.slice(1))); });
    lines.push(show(array));
});
var many = [];
for (var i = 0; i < 2 ** 17 + 1; i++) many.push(i % 3 === 0 ? 'k' + (i * 7919 % 1000) : i * 7919 % 10007);
many[5] = undefined;
delete many[9];
many.sort();
lines.push(many.slice(0, 50).join() + many.slice(70000, 70050).join() + many.slice(-5).join());
note('symbols in many', function () { many[77] = Symbol('s'); return many.sort(); });

var sources = {
    plain: function () { return { 0: 'a', 1: 'b', length: 2 }; },
    array: function () { return ['p', , 'r']; },
    iterable: function () {
        return {
            [Symbol.iterator]: function () {
                log.push('iterator');
                var left = 3;
                return {
                    next: function () { log.push('next'); return { done: left === 0, value: left-- }; },
                    return: function () { log.push('return'); return {}; },
                };
            },
        };
    },
    notIterable: function () { return { [Symbol.iterator]: 5, length: 1 }; },
    nullIterator: function () { return { [Symbol.iterator]: null, length: 1, 0: 'n' }; },
};
var makers = {
    array: Array,
    own: function Own() { log.push('made of ' + [].slice.call(arguments)); },
    arrow: () => 1,
    nothing: undefined,
    object: {},
    frozen: function () { return Object.freeze({}); },
};
for (var maker in makers) {
    for (var source in sources) {
        note('from ' + source + ' for ' + maker,
             function () { return Array.from.call(makers[maker], watched(sources[source]())); });
        note('from ' + source + ' for ' + maker + ' by', function () {
            return Array.from.call(makers[maker], watched(sources[source]()), callbacks.isOne, 1);
        });
        note('from ' + source + ' for ' + maker + ' by none', function () {
            return Array.from.call(makers[maker], watched(sources[source]()), 5);
        });
    }
}
[null, undefined, 5, 'text', true, Symbol()].forEach(function (value) {
    note('from ' + typeof value, function () { return Array.from(value); });
    note('map of ' + typeof value, function () { return Array.prototype.map.call(value, text); });
    note('fill of ' + typeof value, function () { return Array.prototype.fill.call(value, 1); });
});

var revoked = Proxy.revocable([], {});
revoked.revoke();
note('concat of a revoked proxy', function () { return [].concat(watched([1]), revoked.proxy); });
note('concat to a revoked proxy', function () { return Array.prototype.concat.call(revoked.proxy, 1); });
note('map of a revoked proxy', function () { return Array.prototype.map.call(revoked.proxy, text); });
[2 ** 32 - 1, 2 ** 32, 2 ** 33].forEach(function (length) {
    note('concat of a claim ' + length, function () {
        var claim = { [Symbol.isConcatSpreadable]: length > 2 ** 32 - 1, 0: 'a', length: length };
        return [].concat(claim, [7]).length;
    });
});
note('concat of functions', function () { return [].concat(text, 5, 'x', null, undefined, { a: 1 }).length; });
note('map of numbers', function () {
    return Array.prototype.map.call(new Uint8Array([1, 2]), function (value) { return value * 2; });
});
note('join of a data view', function () {
    var view = new DataView(new ArrayBuffer(1));
    view.length = 3;
    return Uint8Array.prototype.join.call(view);
});
note('map of a number', function () {
    Number.prototype.length = 2;
    Number.prototype[0] = 'zero';
    try {
        return Array.prototype.map.call(5, text);
    } finally {
        delete Number.prototype.length;
        delete Number.prototype[0];
    }
});
[new Set([1, 2]), new Map([[1, 2]]), 'text', new String('abc'), new Uint8Array(2), function (a, b) {}].forEach(
    function (source) {
        note('from ' + Object.prototype.toString.call(source), function () { return Array.from(source); });
    });
lines.join('\n');
