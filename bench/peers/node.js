// One peer of the benchmark, in a process of its own: Node's `vm` module. Reads one request a line
// (JSON) from standard input and answers each with one line.
'use strict';
const vm = require('vm');
const fs = require('fs');

let hosts = [];
let builtIns;
let formula;
let context;
let scripts = [];
let result = '';
let passCount = 0;

// Processor time, as the other peers are measured: this process runs single-threaded.
function timed(work) {
  const before = process.cpuUsage();
  work();
  const used = process.cpuUsage(before);
  return (used.user + used.system) * 1000;
}

function unseen(number) {
  return formula.text.replace('#######', String(1000000 + number));
}

function unseenTexts(first, count) {
  return Array.from({length: count}, (_, i) => unseen(first + i));
}

function valueAt(variable, run) {
  return variable.text !== '' ? variable.text : variable.number + variable.step * run;
}

function bindAll(run) {
  for (const variable of formula.variables) context[variable.name] = valueAt(variable, run);
}

function executeTimes(first, count) {
  const script = scripts[scripts.length - 1];
  const changing = formula.variables[0];
  for (let i = 0; i < count; ++i) {
    if (changing.step !== 0) context[changing.name] = valueAt(changing, first + i);
    result = String(script.runInContext(context));
  }
}

const requests = {
  hello: () => `${process.version}, V8 ${process.versions.v8}`,
  builtIns: ({text}) => { builtIns = new vm.Script(text); },
  makeHosts: ({count}) => timed(() => {
    for (let i = 0; i < count; ++i) {
      const host = vm.createContext();
      builtIns.runInContext(host);
      hosts.push(host);
    }
  }),
  resultInLastHost: ({text}) => String(vm.runInContext(text, hosts[hosts.length - 1])),
  dropHosts: () => { hosts = []; },
  use: (request) => {
    formula = request;
    context = vm.createContext();
    scripts = [];
    bindAll(0);
  },
  compile: () => { scripts.push(new vm.Script(formula.text)); },
  execute: ({first, count}) => timed(() => executeTimes(first, count)),
  parse: ({first, count}) => {
    const texts = unseenTexts(first, count);
    return timed(() => {
      for (const text of texts) scripts.push(new vm.Script(text));
    });
  },
  oneShot: ({first, count}) => {
    const texts = unseenTexts(first, count);
    return timed(() => {
      texts.forEach((text, i) => {
        bindAll(first + i);
        result = String(new vm.Script(text).runInContext(context));
      });
    });
  },
  // The rules as regular expressions that are kept, one after the other.
  convert: ({text, count, rules}) => {
    if (passCount === 0) passCount = vm.runInThisContext(
        fs.readFileSync(rules, 'utf8') + '\npasses.length');
    return timed(() => {
      for (let i = 0; i < count; ++i) {
        result = text;
        for (let pass = 0; pass < passCount; ++pass) result = applyPass(pass, result);
      }
    });
  },
  forget: () => { scripts = []; },
  result: () => result,
};

const chunk = Buffer.alloc(1 << 16);
let pending = '';

function readLine() {
  while (!pending.includes('\n')) {
    const size = fs.readSync(0, chunk);
    if (size === 0) return null;
    pending += chunk.toString('latin1', 0, size);
  }
  const end = pending.indexOf('\n');
  const line = pending.slice(0, end);
  pending = pending.slice(end + 1);
  return line;
}

for (let line = readLine(); line !== null; line = readLine()) {
  const request = JSON.parse(line);
  const answer = requests[request.do](request);
  fs.writeSync(1, JSON.stringify(answer === undefined ? null : answer) + '\n');
}
