// What depends on the settings of a translation, and the object that formulas use. The functions
// of the catalogue stand where "@functions@" is.

const make = (exact, format, epoch) => {
  // EXACT off: the right text's length decides how much is compared.
  const compareTexts = (a, b) => {
    const left = exact ? withoutTrailingBlanks(a) : a.length > b.length ? a.slice(0, b.length) : a;
    const right = exact ? withoutTrailingBlanks(b) : b;
    return left < right ? -1 : left > right ? 1 : 0;
  };
  const equal = (a, b, op) => {
    if (areTexts(a, b)) return compareTexts(a, b) === 0;
    if (isNil(a) || isNil(b)) return isNil(a) && isNil(b);
    if (areNumbers(a, b) || areLogical(a, b)) return a === b;
    return areDates(a, b) ? a.jd === b.jd : mismatch(a, op, b);
  };
  const eq = (a, b) => equal(a, b, '=');
  const ne = (a, b) => !equal(a, b, '<>');
  const cmp = (a, b, op) => {
    if (areTexts(a, b)) return compareTexts(a, b);
    if (areDates(a, b)) return a.jd - b.jd;
    if (areNumbers(a, b) || areLogical(a, b)) return a < b ? -1 : a > b ? 1 : 0;
    return mismatch(a, op, b);
  };
  const shown = (x, scale) => {
    if (typeof x === 'string') return x;
    if (typeof x === 'number') return trimmedNumber(x, scale);
    return x instanceof D ? dateText(x, format) : null;
  };
  const best = (name, values, sign) => {
    let chosen = values[0];
    if (typeof chosen !== 'number' && typeof chosen !== 'string' && !(chosen instanceof D)) {
      return wrong(name, 1, 'a number', chosen);
    }
    const needed = {number: 'a number', text: 'a text', date: 'a date'}[kind(chosen)];
    for (let i = 1; i < values.length; ++i) {
      const x = values[i];
      if (kind(x) !== kind(chosen)) return wrong(name, i + 1, needed, x);
      const isLess = chosen instanceof D ? x.jd < chosen.jd : x < chosen;
      const isMore = chosen instanceof D ? x.jd > chosen.jd : x > chosen;
      if (sign < 0 ? isLess : isMore) chosen = x;
    }
    return chosen;
  };
  const result = (x) => x instanceof D ? dateText(x, format) : x;

  const kx = {
    D, jd: day, add, sub, mul, div, rem, pow, neg, pos, not, l, xor, same, within, first, missing, type,
    eq, ne, cmp, result,
  };
  @functions@
  return kx;
};

const made = new Map();
const of = (exact, format, epoch) => {
  const key = exact + ' ' + epoch + ' ' + format;
  if (!made.has(key)) made.set(key, Object.freeze(make(exact, format, epoch)));
  return made.get(key);
};

const standard = make(false, 'YYYY-MM-DD', 1900);
standard.of = of;
Object.defineProperty(standard, 'exact', {get: () => of(true, 'YYYY-MM-DD', 1900)});
Object.defineProperty(globalThis, 'kx', {value: Object.freeze(standard), configurable: true});
