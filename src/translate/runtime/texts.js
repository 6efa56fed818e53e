// Texts as sequences of units.

const changeCase = (text, change, back) => {
  let changed = '';
  for (let i = 0; i < text.length; ++i) {
    const unit = text[i];
    const partner = unit[change]();
    changed += partner.length === 1 && partner[back]() === unit ? partner : unit;
  }
  return changed;
};
const upper = (text) => changeCase(text, 'toUpperCase', 'toLowerCase');
const lower = (text) => changeCase(text, 'toLowerCase', 'toUpperCase');

const isSpace = (unit) => unit === ' ' || unit === '\t' || unit === '\r' || unit === '\n';

const withoutLeadingSpace = (text) => {
  let start = 0;
  while (start < text.length && isSpace(text[start])) ++start;
  return text.slice(start);
};

// Positions count from 1; 0 is "not found". Occurrences may overlap.
const nthPosition = (sought, text, which) => {
  if (sought === '' || which < 1) return 0;
  let found = -1;
  for (; which > 0; --which) {
    found = text.indexOf(sought, found + 1);
    if (found === -1) return 0;
  }
  return found + 1;
};

const nthPositionFromEnd = (sought, text, which) => {
  if (sought === '' || which < 1) return 0;
  let found = text.length;
  for (; which > 0; --which) {
    if (found === 0) return 0;
    found = text.lastIndexOf(sought, found - 1);
    if (found === -1) return 0;
  }
  return found + 1;
};

const rat = (sought, text, which) => {
  const isWrong = !areTexts(sought, text) || (given(which) && typeof which !== 'number');
  return isWrong ? 0 : nthPositionFromEnd(sought, text, given(which) ? Math.trunc(which) : 1);
};

const repeated = (text, count) => {
  if (count <= 0 || text === '') return '';
  limited(text.length * count);
  return text.repeat(count);
};

const replaceSome = (text, sought, replacement, from, most) => {
  if (sought === '') return text;
  let result = '';
  let start = 0;
  let number = 0;
  for (;;) {
    const found = text.indexOf(sought, start);
    if (found === -1 || (number >= from - 1 && number - from + 1 >= most)) break;
    const isReplaced = ++number >= from;
    result += text.slice(start, found) + (isReplaced ? replacement : sought);
    limited(result.length);
    start = found + sought.length;
  }
  limited(result.length + text.length - start);
  return result + text.slice(start);
};

const between = (text, begin, end, which, flags) => {
  const ignoresCase = (flags & 1) !== 0;
  const searched = ignoresCase ? upper(text) : text;
  const opening = ignoresCase ? upper(begin) : begin;
  const closing = ignoresCase ? upper(end) : end;
  let start = 0;
  let opened = 0;
  if (begin !== '') {
    for (let i = 0; i < which; ++i) {
      opened = searched.indexOf(opening, start);
      if (opened === -1) return '';
      start = opened + opening.length;
    }
  }
  let stop = closing === '' ? text.length : searched.indexOf(closing, start);
  let closed = stop + closing.length;
  if (stop === -1) {
    if ((flags & 2) === 0) return '';
    stop = closed = text.length;
  }
  return (flags & 4) !== 0 ? text.slice(opened, closed) : text.slice(start, stop);
};

const padded = (text, width, fill, side) => {
  if (text === null || typeof width !== 'number' || width < 1) return '';
  const w = limited(Math.trunc(width));
  if (text.length >= w) return text.slice(0, w);
  const unit = typeof fill === 'string' ? fill[0] ?? '\0' : ' ';
  const missing = w - text.length;
  const left = side === 'left' ? missing : side === 'both' ? Math.floor(missing / 2) : 0;
  return unit.repeat(left) + text + unit.repeat(missing - left);
};

const words = (text, separators) => {
  const found = [];
  let start = 0;
  for (let i = 0; i <= text.length; ++i) {
    if (i < text.length && !separators.includes(text[i])) continue;
    if (i > start) found.push(text.slice(start, i));
    start = i + 1;
  }
  return found;
};

// "?" stands for one unit, "*" for any number.
const isLike = (pattern, text) => {
  let p = 0;
  let t = 0;
  let star = -1;
  let covered = 0;
  while (t < text.length) {
    if (p < pattern.length && pattern[p] === '*') {
      star = p++;
      covered = t;
    } else if (p < pattern.length && (pattern[p] === '?' || pattern[p] === text[t])) {
      ++p;
      ++t;
    } else if (star !== -1) {
      p = star + 1;
      t = ++covered;
    } else {
      return false;
    }
  }
  while (p < pattern.length && pattern[p] === '*') ++p;
  return p === pattern.length;
};

const isUnit = (text, low, high) =>
  typeof text === 'string' && text !== '' && text[0] >= low && text[0] <= high;

// Path names: where the file's name begins, and its extension's point or the end.
const nameStart = (path) =>
  Math.max(path.lastIndexOf('\\'), path.lastIndexOf('/'), path.lastIndexOf(':')) + 1;
const extensionStart = (path) => {
  const point = path.lastIndexOf('.');
  return point >= nameStart(path) ? point : path.length;
};
const pathOf = (path) => {
  const start = nameStart(path);
  return path.slice(0, start > 0 && path[start - 1] !== ':' ? start - 1 : start);
};
