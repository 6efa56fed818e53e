// Numbers as text. What is printed is judged on the decimal form with 15 significant digits.

// Digits and exponent: the first digit counts 10 ** exponent.
const decimalForm = (x, count) => {
  const form = Math.abs(x).toExponential(count - 1);
  const e = form.indexOf('e');
  return {digits: form.slice(0, e).replace('.', ''), exponent: Number(form.slice(e + 1))};
};

// The digits of |x| rounded half away from zero after `places` decimals, as a whole number's text.
const roundedDigits = (form, places) => {
  const kept = form.exponent + 1 + places;
  if (kept < 0) return '0';
  if (kept >= form.digits.length) return form.digits.padEnd(kept, '0');
  const whole = form.digits.slice(0, kept) || '0';
  return form.digits[kept] >= '5' ? String(BigInt(whole) + 1n) : whole;
};

const decimals = (x, places) => {
  let form = decimalForm(x, 15);
  if (form.exponent + 1 + places > 15) form = decimalForm(x, 16);
  const text = roundedDigits(form, places).padStart(places + 1, '0');
  const sign = x < 0 && Number(text) !== 0 ? '-' : '';
  if (places === 0) return sign + text;
  return sign + text.slice(0, -places) + '.' + text.slice(-places);
};

// The decimals that the shortest form has.
const ownDecimals = (x) => {
  if (x === 0) return 0;
  const form = decimalForm(x, 15);
  let count = form.digits.length;
  while (count > 1 && form.digits[count - 1] === '0') --count;
  return Math.max(0, count - 1 - form.exponent);
};

const round = (x, places) => {
  if (x === 0 || !Number.isFinite(x)) return finite(x) + 0;
  const form = decimalForm(x, 15);
  if (form.exponent + 1 + places >= 15) return x;
  const rounded = Number(roundedDigits(form, places) + 'e' + -places);
  return finite(x < 0 ? 0 - rounded : rounded);
};

// Right-aligned in the width; asterisks where there is no room.
const inWidth = (x, width, places) => {
  limited(width);
  if (places >= width) return '*'.repeat(width);
  const text = decimals(x, places);
  return text.length > width ? '*'.repeat(width) : text.padStart(width);
};

// STR without a width.
const plainNumber = (x, places) => {
  finite(x);
  const shown = places ?? ownDecimals(x);
  const fraction = shown > 0 ? shown + 1 : 0;
  const text = decimals(x, shown);
  const width = (text.length - fraction > 10 ? 20 : 10) + fraction;
  return text.length > width ? '*'.repeat(width) : text.padStart(width);
};

const trimmedNumber = (x, places) => plainNumber(x, places).trimStart();

// `scale` is what the formula's text tells of the decimals.
const str = (name, x, width, places, scale) => {
  asNumber(name, 1, x);
  const d = places === undefined ? undefined : Math.max(0, asWhole(name, 3, places));
  if (width === undefined) return plainNumber(x, d ?? scale);
  const w = asWhole(name, 2, width);
  return inWidth(finite(x), w <= 0 ? 10 : w, d ?? 0);
};

// Leading blanks as zeros, the sign in front.
const zeroFilled = (text) => {
  const number = text.trimStart();
  const zeros = '0'.repeat(text.length - number.length);
  return number.startsWith('-') ? '-' + zeros + number.slice(1) : zeros + number;
};

const value = (text) => {
  let at = 0;
  while (isSpace(text[at])) ++at;
  const isNegative = text[at] === '-';
  if (isNegative || text[at] === '+') ++at;
  const start = at;
  while (text[at] >= '0' && text[at] <= '9') ++at;
  if (text[at] === '.') {
    do ++at; while (text[at] >= '0' && text[at] <= '9');
  }
  const number = finite(Number('0' + text.slice(start, at)));
  return isNegative ? 0 - number : number;
};
