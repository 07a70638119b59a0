// How the result page looks: light and dark as the reader's system is, and black on white on paper.
#pragma once

#include <string_view>

namespace corvane {

constexpr std::string_view page_style = R"css(
:root {
  color-scheme: light dark;
  --ground: #f6f7f9; --sheet: #ffffff; --ink: #1b2430; --soft: #566273; --line: #dde2e9;
  --bar: #2f6fb3; --track: #e9edf2; --mark: #a1260d;
}
@media (prefers-color-scheme: dark) {
  :root {
    --ground: #14181d; --sheet: #1d232b; --ink: #e6eaf0; --soft: #a3aebc; --line: #333c48;
    --bar: #6aa9e9; --track: #2a323d; --mark: #ff9d85;
  }
}
* { box-sizing: border-box; }
body {
  margin: 0; background: var(--ground); color: var(--ink);
  font: 15px/1.55 system-ui, "Noto Sans CJK SC", "WenQuanYi Micro Hei", "Microsoft YaHei", sans-serif;
}
main { max-width: 62rem; margin: 0 auto; padding: 2rem 1.25rem 3rem; }
h1 { margin: 0; font-size: 1.7rem; line-height: 1.25; }
h2 { margin: 0 0 .9rem; font-size: 1.12rem; }
p { margin: .35rem 0; }
.soft { color: var(--soft); }
section, dl { background: var(--sheet); border: 1px solid var(--line); border-radius: 10px; }
section { margin-top: 1.1rem; padding: 1.1rem 1.25rem; }
dl { display: grid; grid-template-columns: repeat(auto-fit, minmax(11rem, 1fr)); margin: 1.3rem 0 0; padding: .4rem 0; }
dl div { padding: .6rem 1.25rem; }
dt { color: var(--soft); font-size: .87rem; }
dd { margin: 0; font-size: 1.5rem; font-weight: 600; line-height: 1.3; font-variant-numeric: tabular-nums; }
table { width: 100%; border-collapse: collapse; }
th, td { padding: .22rem 0; text-align: left; vertical-align: middle; font-weight: normal; }
th { width: 34%; padding-right: 1rem; overflow-wrap: anywhere; }
td.figure { width: 1%; padding-left: 1rem; text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
svg { display: block; width: 100%; height: .85rem; }
svg .track { fill: var(--track); }
svg .bar { fill: var(--bar); }
article { padding: .75rem 0; border-top: 1px solid var(--line); }
article:first-of-type { border-top: 0; padding-top: 0; }
h3 { display: flex; flex-wrap: wrap; gap: .1rem .9rem; margin: 0 0 .3rem; font-size: 1rem; font-variant-numeric: tabular-nums; }
h3 span { color: var(--soft); font-weight: normal; }
ol { margin: 0; padding-left: 2.4rem; }
li { padding: .06rem 0; }
li::marker { color: var(--soft); font-variant-numeric: tabular-nums; }
bdi { white-space: pre-wrap; overflow-wrap: anywhere; }
i { color: var(--mark); font-style: normal; font-size: .85em; border: 1px solid currentColor; border-radius: 3px; padding: 0 .2em; margin: 0 .1em; white-space: nowrap; }
@media (max-width: 40rem) {
  th { width: 40%; }
  td.soft { display: none; }
}
@media print {
  :root {
    color-scheme: light;
    --ground: #fff; --sheet: #fff; --ink: #000; --soft: #444; --line: #bbb; --bar: #444; --track: #eee; --mark: #000;
  }
  body { font-size: 10.5pt; }
  main { max-width: none; padding: 0; }
  section, dl { border: 0; border-radius: 0; border-top: 1px solid #bbb; padding-left: 0; padding-right: 0; }
  dl div { padding-left: 0; }
  svg { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  h2, h3 { break-after: avoid; }
  li, tr { break-inside: avoid; }
}
)css";

}  // namespace corvane
