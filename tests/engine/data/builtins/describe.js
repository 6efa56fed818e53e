// What the other files here are made of: each line of their result tells of one call, with all that a
// script could notice of it.

Error.stackTraceLimit = 100;

var lines = [];
var log = [];

var text = function (value) {
    if (typeof value === 'string') return JSON.stringify(value);
    if (typeof value === 'symbol') return String(value);
    if (typeof value === 'function') return 'function';
    if (typeof value === 'bigint') return value + 'n';
    if (typeof value !== 'object' || value === null) return Object.is(value, -0) ? '-0' : '' + value;
    var made = value.constructor && value.constructor !== Array && value.constructor !== Object;
    var parts = Object.getOwnPropertyNames(value).map(function (name) {
        var property = Object.getOwnPropertyDescriptor(value, name);
        var marks = (property.writable ? 'w' : '') + (property.enumerable ? 'e' : '') +
                    (property.configurable ? 'c' : '');
        return name + ':' + marks + ' ' + ('value' in property ? text(property.value) : 'accessor');
    });
    return (made ? 'made ' : '') + (Array.isArray(value) ? 'array' : 'object') + '{' +
           parts.join(', ') + '}';
};

var key = function (name) { return typeof name === 'symbol' ? String(name) : name; };

// Notes every step that touches `target`.
var watched = function (target) {
    return new Proxy(target, {
        get: function (object, name, receiver) {
            log.push('get ' + key(name));
            return Reflect.get(object, name, receiver);
        },
        set: function (object, name, value, receiver) {
            log.push('set ' + key(name) + ' ' + typeof value);
            return Reflect.set(object, name, value, receiver);
        },
        has: function (object, name) {
            log.push('has ' + key(name));
            return Reflect.has(object, name);
        },
        deleteProperty: function (object, name) {
            log.push('delete ' + key(name));
            return Reflect.deleteProperty(object, name);
        },
        defineProperty: function (object, name, property) {
            log.push('define ' + key(name) + ' ' + Object.keys(property).sort());
            return Reflect.defineProperty(object, name, property);
        },
        getOwnPropertyDescriptor: function (object, name) {
            log.push('describe ' + key(name));
            return Reflect.getOwnPropertyDescriptor(object, name);
        },
        getPrototypeOf: function (object) {
            log.push('prototype');
            return Reflect.getPrototypeOf(object);
        },
    });
};

var note = function (title, call, subject) {
    log = [];
    var outcome;
    try {
        outcome = text(call());
    } catch (error) {
        outcome = error instanceof Error ? error.name + ': ' + error.message + ' (' +
                                               error.stack.split('\n').pop().trim() + ')'
                                         : 'thrown ' + text(error);
    }
    var steps = log.join('; ');
    lines.push(title + ' -> ' + outcome + (subject ? ' leaving ' + text(subject) : '') + ' by ' + steps);
};
