#pragma once

#include <string_view>

namespace kx {

/// The page of the report; "@data@" stands where its data go. It loads nothing from elsewhere, and
/// shows formulas as text only, never as HTML.
inline constexpr std::string_view kReportPage = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>What the conversion does to formulas</title>
<style>
:root { color-scheme: light dark; --line: #8886; --mark: #f9c74f88; }
body { font: 15px/1.45 system-ui, sans-serif; max-width: 72rem; margin: 2rem auto; padding: 0 1rem; }
h1 { font-size: 1.5rem; }
h2 { font-size: 1.1rem; margin: 1.5rem 0 .4rem; }
code, .formula { font: 14px/1.5 ui-monospace, monospace; white-space: pre-wrap; overflow-wrap: anywhere; }
button { font: inherit; }
.bars button { display: grid; grid-template-columns: 13rem 5rem 1fr; gap: .6rem; width: 100%; text-align: left;
  padding: .15rem .3rem; border: 1px solid transparent; background: none; color: inherit; cursor: pointer; }
.bars button[aria-pressed=true] { border-color: currentColor; }
.bars .count { text-align: right; font-variant-numeric: tabular-nums; }
.bars .bar { align-self: center; height: .8rem; background: #4c78a8; min-width: 1px; }
.bars .same .bar { background: #54a24b; }
.bars .differs .bar, .bars .unknown .bar { background: #eeca3b; }
.bars .changed .bar { background: #e45756; }
.bars .fails .bar { background: #b279a2; }
input { font: inherit; width: 100%; box-sizing: border-box; padding: .3rem; }
article { border-top: 1px solid var(--line); padding: .6rem 0; }
article header { font-size: .85rem; opacity: .8; }
mark { background: var(--mark); color: inherit; border-bottom: 2px solid #e45756; }
mark:empty::after { content: "\00a0"; }
ul { margin: .3rem 0; padding-left: 1.2rem; }
.rewrite { border-left: 3px solid #54a24b; padding-left: .5rem; margin-top: .3rem; }
</style>
</head>
<body>
<h1>What the conversion does to formulas</h1>
<p id="total"></p>
<h2>Verdicts</h2>
<div class="bars" id="verdicts"></div>
<h2>Findings</h2>
<div class="bars" id="codes"></div>
<h2>Formulas</h2>
<input id="search" type="search" placeholder="Show formulas that contain this text"
  aria-label="Show formulas that contain this text">
<p id="shown" role="status"></p>
<main id="formulas"></main>
<button id="more" hidden>Show more</button>
<script type="application/json" id="data">@data@</script>
<script>
'use strict';
const data = JSON.parse(document.getElementById('data').textContent);
const byId = (id) => document.getElementById(id);
const chosen = { verdict: null, code: null, text: '' };
const pageSize = 200;
let matching = [];
let shown = 0;

function element(name, className, text) {
  const made = document.createElement(name);
  if (className) made.className = className;
  if (text !== undefined) made.textContent = text;
  return made;
}

function bars(parent, rows, key) {
  const largest = Math.max(1, ...rows.map((row) => row[1]));
  for (const [name, count] of rows) {
    if (count === 0) continue;
    const button = element('button', name.split(' ')[0]);
    button.setAttribute('aria-pressed', 'false');
    button.append(element('span', 'name', name), element('span', 'count', String(count)));
    const bar = element('span', 'bar');
    bar.style.width = 100 * count / largest + '%';
    button.append(bar);
    button.addEventListener('click', () => {
      chosen[key] = chosen[key] === name ? null : name;
      for (const other of parent.children) {
        other.setAttribute('aria-pressed', String(other === button && chosen[key] === name));
      }
      filter();
    });
    parent.append(button);
  }
}

// The formula with its findings marked; where they overlap, the longer ones give way.
function marked(formula, findings) {
  const made = element('div', 'formula');
  const places = findings.map(({ position, length, code }) => ({ position, length, code }))
    .sort((a, b) => a.position - b.position || a.length - b.length);
  let at = 0;
  for (const { position, length, code } of places) {
    if (position < at) continue;
    made.append(formula.slice(at, position));
    const mark = element('mark', '', formula.slice(position, position + length));
    mark.title = code;
    made.append(mark);
    at = position + length;
  }
  made.append(formula.slice(at));
  return made;
}

function article({ line, formula, verdict, javaScript, rewrite, findings }) {
  const made = element('article');
  made.append(element('header', '', line + ': ' + verdict), marked(formula, findings));
  if (findings.length > 0) {
    const list = element('ul');
    for (const finding of findings) {
      const item = element('li', '', finding.code + ': ' + finding.text);
      if (rewrite === '' && finding.rewrite !== '') {
        item.append('; write ', element('code', '', finding.rewrite));
      }
      list.append(item);
    }
    made.append(list);
  }
  if (verdict !== 'same') {
    const converted = element('div', 'converted', 'converted: ');
    converted.append(element('code', '', javaScript.trim()));
    made.append(converted);
  }
  if (rewrite !== '') {
    const better = element('div', 'rewrite', 'write: ');
    better.append(element('code', '', rewrite));
    made.append(better);
  }
  return made;
}

function showMore() {
  const next = matching.slice(shown, shown + pageSize);
  byId('formulas').append(...next.map(article));
  shown += next.length;
  byId('more').hidden = shown >= matching.length;
  byId('shown').textContent = matching.length + ' formulas, ' + shown + ' shown';
}

function filter() {
  const text = chosen.text.toUpperCase();
  matching = data.formulas.filter((each) =>
    (chosen.verdict === null || each.verdict === chosen.verdict) &&
    (chosen.code === null || each.findings.some(({ code }) => code === chosen.code)) &&
    (text === '' || each.formula.toUpperCase().includes(text)));
  shown = 0;
  byId('formulas').replaceChildren();
  showMore();
}

byId('total').textContent = data.formulas.length + ' formulas were compared with their conversion.';
bars(byId('verdicts'), data.verdicts, 'verdict');
bars(byId('codes'), data.codes, 'code');
byId('search').addEventListener('input', (event) => {
  chosen.text = event.target.value;
  filter();
});
byId('more').addEventListener('click', showMore);
filter();
</script>
</body>
</html>
)html";

}  // namespace kx
