// Days and the calendar.

const calendar = (jd) => {
  const shifted = jd + 32044;
  const century = Math.floor((4 * shifted + 3) / 146097);
  const inCentury = shifted - Math.floor(146097 * century / 4);
  const year = Math.floor((4 * inCentury + 3) / 1461);
  const inYear = inCentury - Math.floor(1461 * year / 4);
  const month = Math.floor((5 * inYear + 2) / 153);
  return {
    year: 100 * century + year - 4800 + Math.floor(month / 10),
    month: month + 3 - 12 * Math.floor(month / 10),
    day: inYear - Math.floor((153 * month + 2) / 5) + 1,
  };
};

const dayOf = (year, month, dayOfMonth) => {
  const shift = Math.floor((14 - month) / 12);
  const y = year + 4800 - shift;
  const m = month + 12 * shift - 3;
  return dayOfMonth + Math.floor((153 * m + 2) / 5) + 365 * y + Math.floor(y / 4) -
    Math.floor(y / 100) + Math.floor(y / 400) - 32045;
};

const monthLength = (year, month) =>
  dayOf(month === 12 ? year + 1 : year, month === 12 ? 1 : month + 1, 1) - dayOf(year, month, 1);

// The date, or the empty one where there is none such.
const dateOf = (year, month, dayOfMonth) => {
  const exists = year >= 1 && year <= 9999 && month >= 1 && month <= 12 && dayOfMonth >= 1 &&
    dayOfMonth <= monthLength(year, month);
  return exists ? new D(dayOf(year, month, dayOfMonth)) : emptyDate;
};

const digits = (number, count) => String(number).padStart(count, '0');

const dateText = (date, format) => {
  const part = date.jd === 0 ? null : calendar(date.jd);
  return format.replace(/YYYY|YY|MM|DD/g, (letters) => {
    if (part === null) return ' '.repeat(letters.length);
    if (letters === 'MM') return digits(part.month, 2);
    if (letters === 'DD') return digits(part.day, 2);
    return digits(part.year, 4).slice(-letters.length);
  });
};

const readDate = (text, format, epoch) => {
  const numbers = /^\D*(\d+)\D+(\d+)\D+(\d+)/.exec(text);
  if (numbers === null) return emptyDate;
  const part = {};
  format.match(/Y+|M+|D+/g).forEach((letters, i) => { part[letters[0]] = numbers[i + 1]; });
  let year = Number(part.Y);
  if (part.Y.length <= 2) {
    const century = Math.floor(epoch / 100) * 100;
    year += year >= epoch - century ? century : century + 100;
  }
  return dateOf(year, Number(part.M), Number(part.D));
};

const sortableDate = (date) => dateText(date, 'YYYYMMDD');

const monthNames = ['January', 'February', 'March', 'April', 'May', 'June', 'July', 'August',
  'September', 'October', 'November', 'December'];
const dayNames = ['Sunday', 'Monday', 'Tuesday', 'Wednesday', 'Thursday', 'Friday', 'Saturday'];
