// Values, kinds and the operators that no setting changes.

const longestText = 16777216;

class FormulaError extends Error {}
FormulaError.prototype.name = 'FormulaError';

const fail = (text) => { throw new FormulaError(text); };

// A date is a day: jd counts days so that 2000-01-01 is 2451545; the empty date has 0.
class D {
  constructor(jd) {
    this.jd = jd;
    Object.freeze(this);
  }
  toString() { return dateText(this, 'YYYY-MM-DD'); }
}

const emptyDate = new D(0);
const firstDay = 1721426;
const lastDay = 5373484;

const day = (jd) => jd === 0 ? emptyDate : new D(jd);

const kind = (x) => {
  switch (typeof x) {
    case 'string': return 'text';
    case 'number': return 'number';
    case 'boolean': return 'logical';
    case 'undefined': return 'nil';
    default: return x === null ? 'nil' : x instanceof D ? 'date' : typeof x;
  }
};
const isNil = (x) => x === null || x === undefined;

const mismatch = (a, op, b) => fail('type mismatch: ' + kind(a) + ' ' + op + ' ' + kind(b));
const finite = (x) => Number.isFinite(x) ? x : fail('numeric overflow');
const limited = (length) => length > longestText ? fail('the text is too long') : length;
const areNumbers = (a, b) => typeof a === 'number' && typeof b === 'number';
const areTexts = (a, b) => typeof a === 'string' && typeof b === 'string';
const areDates = (a, b) => a instanceof D && b instanceof D;
const areLogical = (a, b) => typeof a === 'boolean' && typeof b === 'boolean';

const daysLater = (date, days) => {
  if (date.jd === 0) return date;
  const jd = date.jd + Math.trunc(days);
  return jd >= firstDay && jd <= lastDay ? new D(jd) : fail('numeric overflow');
};

// The length without trailing blanks.
const blanksFrom = (text) => {
  let end = text.length;
  while (end > 0 && text.charCodeAt(end - 1) === 32) --end;
  return end;
};
const withoutTrailingBlanks = (text) => text.slice(0, blanksFrom(text));

const add = (a, b) => {
  if (areNumbers(a, b)) return finite(a + b);
  if (areTexts(a, b)) {
    limited(a.length + b.length);
    return a + b;
  }
  if (a instanceof D && typeof b === 'number') return daysLater(a, b);
  if (typeof a === 'number' && b instanceof D) return daysLater(b, a);
  return mismatch(a, '+', b);
};

const sub = (a, b) => {
  if (areNumbers(a, b)) return finite(a - b);
  if (areTexts(a, b)) {
    limited(a.length + b.length);
    const end = blanksFrom(a);
    return a.slice(0, end) + b + a.slice(end);
  }
  if (areDates(a, b)) return a.jd - b.jd;
  if (a instanceof D && typeof b === 'number') return daysLater(a, -Math.trunc(b));
  return mismatch(a, '-', b);
};

const mul = (a, b) => areNumbers(a, b) ? finite(a * b) : mismatch(a, '*', b);
const nonzero = (b) => b === 0 ? fail('division by zero') : b;
const div = (a, b) => areNumbers(a, b) ? finite(a / nonzero(b)) : mismatch(a, '/', b);
const rem = (a, b) => areNumbers(a, b) ? finite(a % nonzero(b)) : mismatch(a, '%', b);
const power = (a, b) =>
  a < 0 && !Number.isInteger(b) ? fail('power has no real result') : finite(Math.pow(a, b));
const pow = (a, b) => areNumbers(a, b) ? power(a, b) : mismatch(a, '^', b);

const neg = (a) => typeof a === 'number' ? -a : fail('type mismatch: -' + kind(a));
const pos = (a) => typeof a === 'number' ? a : fail('type mismatch: +' + kind(a));
const not = (a) => typeof a === 'boolean' ? !a : fail('type mismatch: NOT ' + kind(a));
const l = (a, name) => {
  if (typeof a === 'boolean') return a;
  const needed = name === 'IIF' || name === 'ICASE' ? 'condition' : 'value';
  return fail(name + ' needs a logical ' + needed + ', found ' + kind(a));
};
const xor = (a, b) => {
  l(a, 'XOR');
  l(b, 'XOR');
  return a !== b;
};

const same = (a, b) => {
  if (isNil(a) || isNil(b)) return isNil(a) && isNil(b);
  if (areTexts(a, b) || areNumbers(a, b) || areLogical(a, b)) return a === b;
  return areDates(a, b) ? a.jd === b.jd : mismatch(a, '==', b);
};

const within = (a, b) => areTexts(a, b) ? a !== '' && b.includes(a) : mismatch(a, '$', b);

// The first of its arguments: the others have been evaluated and are not used.
const first = (a) => a;

// Arguments of functions.
const missing = (name, i) => fail(name + ': argument ' + i + ' is missing');
const given = (x) => !isNil(x);
const wrong = (name, i, needed, x) => x === undefined ? missing(name, i) :
  fail(name + ': argument ' + i + ' must be ' + needed + ', found ' + kind(x));
const asText = (name, i, x) => typeof x === 'string' ? x : wrong(name, i, 'a text', x);
const asNumber = (name, i, x) => typeof x === 'number' ? x : wrong(name, i, 'a number', x);
const asWhole = (name, i, x) => Math.trunc(asNumber(name, i, x));
const asDate = (name, i, x) => x instanceof D ? x : wrong(name, i, 'a date', x);
const asAny = (name, i, x) => x === undefined ? wrong(name, i, '', x) : x;
const wholeOr = (name, i, x, otherwise) => given(x) ? asWhole(name, i, x) : otherwise;
const textOr = (name, i, x, otherwise) => given(x) ? asText(name, i, x) : otherwise;

const letterOf = (x) => ({text: 'C', number: 'N', logical: 'L', date: 'D'})[kind(x)] ?? 'U';
const type = (evaluate) => {
  try {
    return letterOf(evaluate());
  } catch {
    return 'U';
  }
};
