// Subjects that only a script can tell the length of are taken for endless ones.
var subject = function (content) {
    return {
        get length() { log.push('length'); return 2 ** 30; },
        toString: function () { log.push('toString'); return content; },
    };
};

var contents = ['', 'abcabc', 'a-b--c', '\ud83d\ude00a\ud83d\ude00', 'a\nb\na'];

var expression = function (source, flags) { return watchedExpression(new RegExp(source, flags)); };

// Notes what is looked up in an expression, without a proxy, which is none.
var watchedExpression = function (made) {
    ['exec', 'flags', 'global', 'unicode', 'constructor'].forEach(function (name) {
        var value = made[name];
        Object.defineProperty(made, name, {
            get: function () { log.push(name); return value; },
            configurable: true,
        });
    });
    return made;
};

var patterns = [
    function () { return 'a'; },
    function () { return ''; },
    function () { return 'abcabc'; },
    function () { return 'none'; },
    function () { return undefined; },
    function () { return null; },
    function () { return 5; },
    function () { return { toString: function () { log.push('pattern'); return 'b'; } }; },
    function () { return { [Symbol.split]: 5, [Symbol.match]: 5, [Symbol.replace]: 5 }; },
    function () { return { [Symbol.match]: null, [Symbol.split]: null, [Symbol.replace]: null }; },
    function () {
        return {
            [Symbol.split]: function (a, b) { return ['own', typeof a, b]; },
            [Symbol.match]: function (a) { return ['own', typeof a]; },
            [Symbol.replace]: function (a, b) { return ['own', typeof a, typeof b]; },
            flags: 'g',
        };
    },
    function () { return Symbol.iterator; },
    function () { return { [Symbol.match]: true, flags: undefined }; },
    function () { return { [Symbol.match]: true, flags: 'i' }; },
];
['a', 'b+', '(a)(b)?', '', '(?:)', 'x*', '[^]', '(?<letter>a)|(?<other>b)', '^a', '(.)(.)(.)', '$', '-'].forEach(
    function (source) {
        ['', 'g', 'gy', 'u'].forEach(function (flags) {
            patterns.push(function () { return new RegExp(source, flags); });
        });
        ['', 'gu'].forEach(function (flags) {
            patterns.push(function () { return expression(source, flags); });
        });
    });
patterns.push(
    function () { var made = /a/g; made.exec = function () { return null; }; return made; },
    function () { var made = /a/g; made.exec = function () { return 5; }; return made; },
    function () { var made = /a/g; made.exec = 5; return made; },
    function () {
        var made = /a/g;
        var left = 2;
        made.exec = function () {
            return left-- > 0 ? { 0: 'ab', length: 2.5, index: '1', groups: { n: 1 }, 1: 7 } : null;
        };
        return made;
    },
    function () { var made = /a/; made.constructor = undefined; return made; },
    function () { var made = /a/; made.constructor = 5; return made; },
    function () { var made = /a/; made.constructor = { [Symbol.species]: function () { return /b/y; } }; return made; },
    function () { var made = /a/g; Object.defineProperty(made, 'lastIndex', { writable: false, value: 0 }); return made; },
    function () { var made = /a/y; made.lastIndex = 3; return made; },
    function () { var made = /a/g; made[Symbol.match] = undefined; return made; },
    function () { var made = /a/g; made[Symbol.replace] = function () { return 'replaced'; }; return made; });

var replacements = [
    'z', '', '$$', '$&', '[$`]', "[$']", '$1', '$01', '$10', '$11', '$2x', '$0', '$00', '$<letter>', '$<', '$<none>',
    '$', 'a$', '$99', '$1$2$3', undefined, null, 5,
    function () { return [].map.call(arguments, text).join('|'); },
    function () { return undefined; },
    function () { throw new RangeError('replacement'); },
    { toString: function () { log.push('replacement'); return '<$&>'; } },
];

contents.forEach(function (content) {
    patterns.forEach(function (pattern, number) {
        var title = JSON.stringify(content) + ' by ' + number;
        [[], [undefined], [0], [1], ['2'], [-1], [4294967297], [5n]].forEach(function (limit, which) {
            if (which > 3 && number % 5 !== 0) return;
            note('split ' + title + ' ' + text(limit), function () {
                return String.prototype.split.apply(subject(content), [pattern()].concat(limit));
            });
        });
        note('match ' + title, function () { return String.prototype.match.call(subject(content), pattern()); });
        replacements.forEach(function (replacement, which) {
            if ((which + number) % 5 !== 0 && number > 20) return;
            var more = title + ' with ' + text(replacement);
            var used;
            note('replace ' + more, function () {
                used = pattern();
                return String.prototype.replace.call(subject(content), used, replacement);
            });
            if (used instanceof RegExp) lines.push('then ' + used.lastIndex);
            note('replaceAll ' + more, function () {
                return String.prototype.replaceAll.call(subject(content), pattern(), replacement);
            });
        });
    });
});

['match', 'replace', 'replaceAll', 'split', 'toLowerCase', 'toUpperCase', 'toLocaleLowerCase', 'toLocaleUpperCase']
    .forEach(function (method) {
        note(method + ' of null', function () { return String.prototype[method].call(null); });
        note(method + ' of a symbol', function () { return String.prototype[method].call(Symbol()); });
        note(method + ' of a number', function () { return String.prototype[method].call(12.5, '.', 'x'); });
        ['\u0130\u03a3x', 'stra\u00dfe', 'A\u03a3', '\ud801\udc00'].forEach(function (content) {
            note(method + ' of ' + content,
                 function () { return String.prototype[method].call(subject(content), 'tr'); });
        });
    });

// Many pieces of few characters.
var dollars = '$&'.repeat(3000);
lines.push('aXbX'.repeat(500).replace(/X/g, dollars).length);
lines.push('aXbX'.repeat(500).replaceAll('X', dollars).length);

// More characters than V8's own functions are left to.
var long = 'ab----------'.repeat(1400000);
lines.push(long.replace('b', 'X').slice(0, 9), long.replace(/b/g, '[$&]').slice(-15));
lines.push(long.replaceAll('b', 'XY').length);
var longer = 'x'.repeat(2 ** 25) + ',ab,b';
lines.push(longer.split(',').slice(1), longer.split(/,/).slice(1), longer.split(',', 1).length);
lines.push(longer.match(/b/g), longer.match(/b/).index);

var raws = [
    undefined, null, {}, { raw: null }, { raw: 'text' }, { raw: ['a', 'b', 'c'] }, { raw: { length: 2, 0: 'p' } },
    { raw: { length: -1 } }, { raw: { get length() { log.push('length'); return 2; }, get 0() { log.push('0'); return 'z'; } } },
    { get raw() { log.push('raw'); return ['q', 'r']; } }, { raw: [Symbol()] }, 5,
];
raws.forEach(function (template) {
    [[], [1], [1, 2, 3], [Symbol()], [{ toString: function () { log.push('value'); return 'v'; } }]].forEach(function (given) {
        note('raw ' + text(template) + ' ' + text(given),
             function () { return String.raw.apply(undefined, [template].concat(given)); });
    });
});
note('raw of a template', function () { return String.raw`a${1}\n${2}`; });

[Uint8Array, Float64Array, BigInt64Array].forEach(function (Numbers) {
    [[], [undefined], [''], ['-'], [null], [{ toString: function () { log.push('between'); return '+'; } }]].forEach(function (given) {
        note('join ' + Numbers.name + text(given), function () { var made = new Numbers(3); return made.join.apply(made, given); });
    });
    note('join of another', function () { return Numbers.prototype.join.call([1, 2]); });
    note('join of endless', function () { return Numbers.prototype.join.call({ length: 2 ** 40 }); });
});
lines.push(new Uint8Array(2 ** 24 + 1).join('').length);

['replace', 'replaceAll'].forEach(function (method) {
    [undefined, null].forEach(function (value) {
        [{}, [], 'x', text].forEach(function (replacement) {
            note(method + ' of ' + value + ' by ' + typeof replacement,
                 function () { return String.prototype[method].call(value, 'u', replacement); });
        });
    });
});
note('groups that are null', function () {
    var found = { 0: 'X', index: 1, length: 1, groups: null };
    var own = Object.assign(/X/, { exec: function () { return found; } });
    return 'aXb'.replace(own, { toString: function () { return '<$<a>>'; } });
});
note('locales are read once', function () {
    var reads = 0;
    var locale = { toString: function () { reads++; return 'tr'; } };
    return String.prototype.toLocaleUpperCase.call(subject('i'), [locale]) + reads;
});
note('raw of a number', function () {
    Object.defineProperty(Object.prototype, 'raw', {
        get: function () { 'use strict'; return [typeof this, 'q']; },
        configurable: true,
    });
    try {
        return String.raw(5, 1);
    } finally {
        delete Object.prototype.raw;
    }
});
note('split by null', function () { return 'anullb'.split(null); });
note('split of an object by null', function () { return String.prototype.split.call(subject('anullb'), null); });
note('match without its method', function () {
    var method = RegExp.prototype[Symbol.match];
    RegExp.prototype[Symbol.match] = 5;
    try {
        return String.prototype.match.call(subject('abc'), 'b');
    } finally {
        RegExp.prototype[Symbol.match] = method;
    }
});
lines.join('\n');
