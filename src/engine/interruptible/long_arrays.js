// The functions of arrays, for objects that are or claim to be so long that their end is not in
// sight. Each does the steps that the language prescribes, one by one.

// In what order V8 puts values without a comparator; it does so without looking.
const compareTexts = (left, right) => {
    const a = `${left}`;
    const b = `${right}`;
    if (a < b) return -1;
    return b < a ? 1 : 0;
};

const longArrays = {
    forEach(callback, receiver) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        demandCallback(callback, forEach);
        for (let k = 0; k < length; k++) {
            if (k in object) apply(callback, receiver, [object[k], k, object]);
        }
    },

    every(callback, receiver) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        demandCallback(callback, every);
        for (let k = 0; k < length; k++) {
            if (k in object && !apply(callback, receiver, [object[k], k, object])) return false;
        }
        return true;
    },

    some(callback, receiver) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        demandCallback(callback, some);
        for (let k = 0; k < length; k++) {
            if (k in object && apply(callback, receiver, [object[k], k, object])) return true;
        }
        return false;
    },

    map(callback, receiver) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        demandCallback(callback, map);
        const result = speciesCreate(object, length);
        for (let k = 0; k < length; k++) {
            if (k in object) create(result, k, apply(callback, receiver, [object[k], k, object]));
        }
        return result;
    },

    filter(callback, receiver) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        demandCallback(callback, filter);
        const result = speciesCreate(object, 0);
        let to = 0;
        for (let k = 0; k < length; k++) {
            if (!(k in object)) continue;
            const value = object[k];
            if (apply(callback, receiver, [value, k, object])) create(result, to++, value);
        }
        return result;
    },

    reduce(callback, ...initial) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        demandCallback(callback, reduce);
        let k = 0;
        let result;
        if (initial.length > 0) {
            result = initial[0];
        } else {
            while (k < length && !(k in object)) k++;
            if (k >= length) return apply(reduce, [], [callback]);
            result = object[k++];
        }
        for (; k < length; k++) {
            if (k in object) result = callback(result, object[k], k, object);
        }
        return result;
    },

    reduceRight(callback, ...initial) {
        const object = ObjectOf(this);
        let k = toLength(object.length) - 1;
        demandCallback(callback, reduceRight);
        let result;
        if (initial.length > 0) {
            result = initial[0];
        } else {
            while (k >= 0 && !(k in object)) k--;
            if (k < 0) return apply(reduceRight, [], [callback]);
            result = object[k--];
        }
        for (; k >= 0; k--) {
            if (k in object) result = callback(result, object[k], k, object);
        }
        return result;
    },

    indexOf(element, start) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        if (length === 0) return -1;
        for (let k = toIndex(start, length); k < length; k++) {
            if (k in object && object[k] === element) return k;
        }
        return -1;
    },

    lastIndexOf(element, ...start) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        if (length === 0) return -1;
        const from = start.length > 0 ? toInteger(start[0]) : length - 1;
        for (let k = from < 0 ? length + from : min(from, length - 1); k >= 0; k--) {
            if (k in object && object[k] === element) return k;
        }
        return -1;
    },

    includes(element, start) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        if (length === 0) return false;
        for (let k = toIndex(start, length); k < length; k++) {
            const value = object[k];
            if (value === element || (value !== value && element !== element)) return true;
        }
        return false;
    },

    fill(value, start, end) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        let k = toIndex(start, length);
        for (const last = toEnd(end, length); k < last; k++) object[k] = value;
        return object;
    },

    copyWithin(target, start, end) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        let to = toIndex(target, length);
        let source = toIndex(start, length);
        let count = min(toEnd(end, length) - source, length - to);
        let step = 1;
        if (source < to && to < source + count) {
            step = -1;
            source += count - 1;
            to += count - 1;
        }
        for (; count > 0; count--, source += step, to += step) {
            move(object, source, to);
        }
        return object;
    },

    reverse() {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        const middle = trunc(length / 2);
        for (let lower = 0; lower < middle; lower++) {
            const upper = length - lower - 1;
            const isLower = lower in object;
            const lowerValue = isLower ? object[lower] : undefined;
            const isUpper = upper in object;
            const upperValue = isUpper ? object[upper] : undefined;
            if (isUpper) {
                object[lower] = upperValue;
            } else if (isLower) {
                delete object[lower];
            }
            if (isLower) {
                object[upper] = lowerValue;
            } else if (isUpper) {
                delete object[upper];
            }
        }
        return object;
    },

    shift() {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        if (length === 0) {
            object.length = 0;
            return undefined;
        }
        const first = object[0];
        for (let k = 1; k < length; k++) move(object, k, k - 1);
        delete object[length - 1];
        object.length = length - 1;
        return first;
    },

    unshift(...items) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        const count = items.length;
        if (count > 0) {
            if (length + count > largestLength) throw new TypeErrorOf('Invalid array length');
            for (let k = length - 1; k >= 0; k--) move(object, k, k + count);
            for (let j = 0; j < count; j++) object[j] = items[j];
        }
        object.length = length + count;
        return length + count;
    },

    splice(...given) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        const start = toIndex(given.length > 0 ? given[0] : 0, length);
        const added = max(given.length - 2, 0);
        let removed = 0;
        if (given.length === 1) removed = length - start;
        if (given.length > 1) removed = min(max(toInteger(given[1]), 0), length - start);
        if (length + added - removed > largestLength) throw new TypeErrorOf('Invalid array length');
        const result = speciesCreate(object, removed);
        for (let k = 0; k < removed; k++) {
            if (start + k in object) create(result, k, object[start + k]);
        }
        result.length = removed;
        if (added < removed) {
            for (let k = start; k < length - removed; k++) {
                move(object, k + removed, k + added);
            }
            for (let k = length; k > length - removed + added; k--) delete object[k - 1];
        } else if (added > removed) {
            for (let k = length - removed; k > start; k--) {
                move(object, k + removed - 1, k + added - 1);
            }
        }
        for (let j = 0; j < added; j++) object[start + j] = given[j + 2];
        object.length = length - removed + added;
        return result;
    },

    slice(start, end) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        let k = toIndex(start, length);
        const last = toEnd(end, length);
        const result = speciesCreate(object, max(last - k, 0));
        let to = 0;
        for (; k < last; k++, to++) {
            if (k in object) create(result, to, object[k]);
        }
        result.length = to;
        return result;
    },

    concat(...items) {
        const object = ObjectOf(this);
        const result = speciesCreate(object, 0);
        let to = 0;
        const append = (item) => {
            let isSpread = false;
            if (isObject(item)) {
                const wanted = item[isConcatSpreadable];
                isSpread = wanted === undefined ? isArray(item) : !!wanted;
            }
            let length = isSpread ? toLength(item.length) : 1;
            // So does V8.
            if (length > 2 ** 32 - 1 && !isArrayObject(item)) length = 0;
            if (to + length > largestLength) throw new TypeErrorOf('Invalid array length');
            if (!isSpread) {
                create(result, to++, item);
                return;
            }
            for (let k = 0; k < length; k++, to++) {
                if (k in item) create(result, to, item[k]);
            }
        };
        append(object);
        for (let i = 0; i < items.length; i++) append(items[i]);
        result.length = to;
        return result;
    },

    flat(depth) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        const levels = depth === undefined ? 1 : toInteger(depth);
        const result = speciesCreate(object, 0);
        appendFlattened(result, 0, object, length, levels);
        return result;
    },

    flatMap(callback, receiver) {
        const object = ObjectOf(this);
        const length = toLength(object.length);
        demandCallback(callback, flatMap);
        const result = speciesCreate(object, 0);
        let to = 0;
        for (let k = 0; k < length; k++) {
            if (!(k in object)) continue;
            const value = apply(callback, receiver, [object[k], k, object]);
            if (isArray(value)) {
                to = appendFlattened(result, to, value, toLength(value.length), 0);
            } else {
                create(result, to++, value);
            }
        }
        return result;
    },

    sort(comparator) {
        if (comparator !== undefined) demandCallback(comparator, sort);
        const object = ObjectOf(this);
        const length = toLength(object.length);
        const values = list();
        let count = 0;
        for (let k = 0; k < length; k++) {
            if (k in object) values[count++] = object[k];
        }
        apply(sort, values, [comparator ?? compareTexts]);
        for (let k = 0; k < count; k++) object[k] = values[k];
        for (let k = count; k < length; k++) delete object[k];
        return object;
    },

    from(items) {
        const makes = isConstructor(this);
        const method = items[iterator];
        if (method !== undefined && method !== null) {
            if (typeof method !== 'function') {
                // Throws, in the words of this version of V8.
                return apply(from, undefined, [{ __proto__: null, [iterator]: method }]);
            }
            const result = makes ? new this() : [];
            let count = 0;
            const values = { __proto__: null, [iterator]: () => apply(method, items, []) };
            for (const value of values) create(result, count++, value);
            result.length = count;
            return result;
        }
        const object = ObjectOf(items);
        const length = toLength(object.length);
        const result = makes ? new this(length) : new ArrayOfScript(length);
        for (let k = 0; k < length; k++) create(result, k, object[k]);
        result.length = length;
        return result;
    },

    // Of typed arrays, whose elements are numbers.
    join(separator) {
        const length = numbersIn(this);
        const between = separator === undefined ? ',' : `${separator}`;
        let text = '';
        for (let k = 0; k < length; k++) {
            if (k > 0) text += between;
            text += `${this[k] ?? ''}`;
        }
        return text;
    },

    // Of texts; `given` are the template and the values between the strings.
    raw(strings, given) {
        const object = ObjectOf(strings);
        const length = toLength(object.length);
        let text = '';
        for (let k = 0; k < length; k++) {
            text += `${object[k]}`;
            if (k + 1 < length && k + 1 < given.length) text += `${given[k + 1]}`;
        }
        return text;
    },
};
