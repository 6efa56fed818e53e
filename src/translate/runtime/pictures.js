// TRANSFORM with a picture.

const readPicture = (picture) => {
  if (!picture.startsWith('@')) return {flags: '', cut: 0, template: picture};
  const end = picture.search(/[ \t]/);
  const letters = (end === -1 ? picture.slice(1) : picture.slice(1, end)).toUpperCase();
  const cut = /S(\d+)/.exec(letters);
  return {
    flags: letters,
    cut: cut === null ? 0 : Number(cut[1]),
    template: end === -1 ? '' : picture.slice(end + 1),
  };
};

const textSymbols = '!#9ALNXY';

const pictureUnit = (symbol, unit) => {
  if (symbol === '!') return upper(unit);
  return symbol === 'Y' || symbol === 'y' ? ('tTyY'.includes(unit) ? 'Y' : 'N') : unit;
};

const pictureText = (text, template, inserts) => {
  if (template === '') return text;
  const isSymbol = (unit) => textSymbols.includes(unit.toUpperCase());
  let result = '';
  if (!inserts) {
    const length = Math.min(text.length, template.length);
    for (let i = 0; i < length; ++i) {
      result += isSymbol(template[i]) ? pictureUnit(template[i], text[i]) : template[i];
    }
    return result;
  }
  let at = 0;
  let hasSymbol = false;
  for (let i = 0; i < template.length; ++i) {
    if (!isSymbol(template[i])) {
      result += template[i];
      continue;
    }
    hasSymbol = true;
    result += at < text.length ? pictureUnit(template[i], text[at]) : ' ';
    ++at;
  }
  return hasSymbol ? result : template + text;
};

const pictureLogical = (isTrue, template, inserts) => {
  if (template === '') return isTrue ? 'T' : 'F';
  const symbolText = (unit) => {
    if (unit === 'L' || unit === 'l' || unit === '#') return isTrue ? 'T' : 'F';
    return unit === 'Y' || unit === 'y' ? (isTrue ? 'Y' : 'N') : null;
  };
  if (!inserts) return symbolText(template[0]) ?? template[0];
  let result = '';
  let isPrinted = false;
  for (let i = 0; i < template.length; ++i) {
    const printed = symbolText(template[i]);
    if (printed === null) {
      result += template[i];
    } else {
      result += isPrinted ? ' ' : printed;
      isPrinted = true;
    }
  }
  return result;
};

const isPlace = (unit) => unit === '9' || unit === '#' || unit === '$' || unit === '*';

// The number with the width and decimals of the template's places.
const numberForTemplate = (x, template, scale) => {
  const point = template.indexOf('.');
  let whole = 0;
  let fraction = 0;
  for (let i = 0; i < template.length; ++i) {
    if (!isPlace(template[i])) continue;
    if (point === -1 || i < point) ++whole;
    else ++fraction;
  }
  if (whole + fraction === 0) return plainNumber(x, scale);
  const width = whole + fraction + (fraction > 0 ? 1 : 0);
  if (whole > 0) return inWidth(x, width, fraction);
  const text = decimals(x, fraction);
  return text.startsWith('0') && text.length === width + 1 ? text.slice(1) : '*'.repeat(width);
};

const fillTemplate = (text, template, isEuropean) => {
  const printed = [];
  let at = 0;
  const next = () => at < text.length ? text[at++] : ' ';
  for (let i = 0; i < template.length; ++i) {
    const symbol = template[i];
    if (symbol === '9' || symbol === '#') {
      printed.push(next());
    } else if (symbol === '$' || symbol === '*') {
      const unit = next();
      printed.push(unit === ' ' ? symbol : unit);
    } else if (symbol === '.') {
      next();
      printed.push(isEuropean ? ',' : '.');
    } else if (symbol !== ',') {
      printed.push(symbol);
    } else {
      const last = printed[printed.length - 1] ?? ' ';
      if (last === '-') printed[printed.length - 1] = printed[printed.length - 2] ?? ' ';
      printed.push(last >= '0' && last <= '9' ? (isEuropean ? '.' : ',') : last);
    }
  }
  return printed.join('');
};

const inParentheses = (text, atNumber) => {
  const blanks = text.length - text.trimStart().length;
  const at = atNumber && blanks > 0 ? blanks - 1 : 0;
  const replaced = text[at] ?? '';
  let rest = text.slice(at + 1);
  if (replaced >= '1' && replaced <= '9') rest = rest.replace(/\d/g, '*');
  return text.slice(0, at) + '(' + rest + ')';
};

const pictureNumber = (x, {flags, template}, scale) => {
  const isNegative = x < 0;
  const hasParentheses = isNegative && /[()]/.test(flags);
  const isDebit = isNegative && flags.includes('X');
  const number = hasParentheses || isDebit ? -x : x;
  const isEuropean = flags.includes('E');
  let text = numberForTemplate(number, template, scale);
  if (template !== '') text = fillTemplate(text, template, isEuropean);
  else if (isEuropean) text = text.replace('.', ',');
  if (/[0L]/.test(flags.replace(/S\d*/, ''))) text = zeroFilled(text);
  if (hasParentheses) text = inParentheses(text, !flags.includes('('));
  if (flags.includes('C') && x > 0) text += ' CR';
  if (isDebit) text += ' DB';
  return text;
};

const leadingBlanksLast = (text) => {
  const start = text.startsWith('(') ? 1 : 0;
  let end = start;
  while (text[end] === ' ') ++end;
  return text.slice(0, start) + text.slice(end) + text.slice(start, end);
};

const european = (format) => {
  const separator = /[^YMD]/.exec(format)?.[0] ?? '';
  return ['DD', 'MM', format.includes('YYYY') ? 'YYYY' : 'YY'].join(separator);
};

const transform = (x, picture, scale, format) => {
  if (isNil(x)) return wrong('TRANSFORM', 1, 'a text, number, date or logical value', x);
  if (picture === undefined || picture === null || picture === '') {
    if (typeof x === 'string') return x;
    if (x instanceof D) return dateText(x, format);
    if (typeof x === 'boolean') return x ? 'T' : 'F';
    return picture === undefined ? trimmedNumber(x, scale) : plainNumber(x, scale);
  }
  const read = readPicture(asText('TRANSFORM', 2, picture));
  const {flags, template, cut} = read;
  const inserts = flags.includes('R');
  let text = '';
  if (typeof x === 'number') text = pictureNumber(finite(x), read, scale);
  else if (typeof x === 'string') text = pictureText(x, template, inserts);
  else if (x instanceof D) text = dateText(x, flags.includes('E') ? european(format) : format);
  else text = pictureLogical(x, template, inserts);
  if (typeof x === 'string' && flags.includes('!')) text = upper(text);
  if (flags.includes('B')) text = leadingBlanksLast(text);
  if (flags.includes('Z') && (typeof x !== 'number' || x === 0)) text = ' '.repeat(text.length);
  return cut > 0 && typeof x === 'string' ? text.slice(0, cut) : text;
};
