#ifndef STANDALONE_OUTPUT_HTML_HTML_STYLE_H
#define STANDALONE_OUTPUT_HTML_HTML_STYLE_H

#include <string_view>

namespace standalone {

/// The style sheet of the page: light and dark, narrow and wide, on paper.
inline constexpr std::string_view kPageStyle = R"css(:root {
  color-scheme: light dark;
  --page: #ffffff;
  --panel: #f5f6f8;
  --line: #d8dce2;
  --ink: #1b1f24;
  --soft: #59626d;
  --link: #0a54b3;
  --error: #a8201a;
  --error-panel: #fdf1f0;
  --warning: #7a4d00;
  --warning-panel: #fdf6e6;
  --ok: #22683c;
  --bar: #0072b2; --bar-1: #bd8300; --bar-2: #1d96db; --bar-3: #009e73; --bar-4: #968c0b; --bar-5: #0072b2;
  --bar-6: #d55e00; --bar-7: #c66f9f;
}
@media (prefers-color-scheme: dark) {
  :root {
    --page: #15181c;
    --panel: #1e2329;
    --line: #363d46;
    --ink: #e3e7ec;
    --soft: #9ca6b2;
    --link: #8db8f7;
    --error: #ff9d94;
    --error-panel: #35201f;
    --warning: #ecc46c;
    --warning-panel: #302817;
    --ok: #84cf9f;
    --bar: #56b4e9; --bar-1: #e69f00; --bar-2: #56b4e9; --bar-3: #009e73; --bar-4: #f0e442; --bar-5: #0072b2;
    --bar-6: #d55e00; --bar-7: #cc79a7;
  }
}
* { box-sizing: border-box; }
html { -webkit-text-size-adjust: 100%; text-size-adjust: 100%; }
body {
  max-width: 68rem;
  margin: 0 auto;
  padding: 2.5rem 1.5rem 4rem;
  background: var(--page);
  color: var(--ink);
  font: 1rem/1.5 system-ui, "Segoe UI", Roboto, "Helvetica Neue", "Noto Sans", "Liberation Sans", Arial, sans-serif;
  overflow-wrap: anywhere;
}
code, pre { font-family: ui-monospace, "SF Mono", Menlo, Consolas, "Liberation Mono", monospace; font-size: 0.9em; }
a { color: var(--link); text-underline-offset: 0.15em; }
:focus-visible { outline: 2px solid var(--link); outline-offset: 2px; }
h1, h2, p, ul, dl, pre { margin: 0; }
ul { padding: 0; list-style: none; }

.kind { color: var(--soft); }
h1 { font-size: 2rem; line-height: 1.2; font-weight: 650; }
.dry-run { margin-top: 0.75rem; }
.counts { display: grid; grid-template-columns: repeat(auto-fit, minmax(5.5rem, max-content)); gap: 1rem 2.5rem; margin-top: 1.5rem; }
.counts div { display: flex; flex-direction: column-reverse; }
.counts dt { color: var(--soft); font-size: 0.875rem; }
.counts dd { margin: 0; font-size: 1.5rem; line-height: 1.3; font-variant-numeric: tabular-nums; }
.counts .error dd, .counts .aborted dd { color: var(--error); }
.counts .warning dd { color: var(--warning); }
nav { margin-top: 1.75rem; padding: 1rem 1.25rem; background: var(--error-panel); border-radius: 0.5rem; }
nav h2 { font-size: 1rem; font-weight: 650; color: var(--error); }
nav li { margin-top: 0.5rem; }
.reason { display: block; color: var(--soft); font-size: 0.9375rem; }

.command { margin-top: 2.5rem; padding-top: 1.5rem; border-top: 1px solid var(--line); }
.command > * + * { margin-top: 1rem; }
.command > .facts { margin-top: 0.375rem; color: var(--soft); font-size: 0.875rem; }
.command h2 { display: flex; gap: 0.75rem; font-size: 1rem; font-weight: 600; }
.command h2 code { flex: 1; min-width: 0; font-size: 0.9375rem; white-space: pre-wrap; }
.position { color: var(--soft); font-weight: 400; font-variant-numeric: tabular-nums; }
.command-text { padding: 0.75rem 1rem; background: var(--panel); border-radius: 0.5rem; white-space: pre-wrap; }
.status { margin-right: 0.5rem; font-weight: 600; }
.status.ok { color: var(--ok); }
.status.error, .status.aborted { color: var(--error); }
.messages li { padding: 0.5rem 1rem; border-left: 0.25rem solid; border-radius: 0.25rem; }
.messages li + li { margin-top: 0.5rem; }
.messages .error { border-color: var(--error); background: var(--error-panel); }
.messages .warning { border-color: var(--warning); background: var(--warning-panel); }
.messages .error strong { color: var(--error); }
.messages .warning strong { color: var(--warning); }
.messages > .hint { border-color: var(--line); background: var(--panel); }
.messages p + p, .messages pre + p, .messages p + pre { margin-top: 0.25rem; }
.messages .hint strong { color: var(--ink); font-weight: 600; }
.place { color: var(--soft); font-size: 0.875rem; }
.excerpt { white-space: pre-wrap; }
mark { padding: 0.1em 0.15em; border-bottom: 2px solid var(--error); background: none; color: inherit; font-weight: 650; }
.warning mark { border-color: var(--warning); }

.scroll {
  position: relative;
  overflow-x: auto;
  background:
    linear-gradient(to right, var(--page) 1.5rem, transparent) left / 3rem 100% local,
    linear-gradient(to left, var(--page) 1.5rem, transparent) right / 3rem 100% local,
    linear-gradient(to right, var(--line), transparent) left / 0.75rem 100%,
    linear-gradient(to left, var(--line), transparent) right / 0.75rem 100%,
    var(--page);
  background-repeat: no-repeat;
}
table { border-collapse: collapse; overflow-wrap: normal; font-size: 0.9375rem; }
caption { padding-bottom: 0.5rem; font-weight: 650; text-align: left; }
th, td { padding: 0.4375rem 1.25rem 0.4375rem 0; vertical-align: top; text-align: start; }
th:last-child, td:last-child { padding-right: 0.5rem; }
thead th { border-bottom: 2px solid var(--line); color: var(--soft); font-weight: 600; vertical-align: bottom; }
tbody tr { border-bottom: 1px solid var(--line); }
tbody th { font-weight: 600; }
th, td { max-width: 28rem; overflow-wrap: break-word; }
td li { padding-inline-start: 1em; text-indent: -1em; }
td.number { text-align: right; font-variant-numeric: tabular-nums; }
th.number { text-align: right; }
td.none { color: var(--soft); }
tfoot { color: var(--soft); }
tbody + tfoot { border-top: 2px solid var(--line); }
tfoot th { font-weight: 400; }
.net th, .net td { font-style: italic; }
.scope { display: block; color: var(--soft); font-weight: 400; }
.tabulation { display: flex; flex-wrap: wrap; align-items: flex-start; gap: 1.5rem 2.5rem; }
.tabulation > .scroll { max-width: 100%; }
.tabulation > .chart { flex: 1 1 25rem; min-width: min(25rem, 100%); max-width: 44rem; }
.chart-title { margin-bottom: 0.5rem; font-size: 0.9375rem; font-weight: 650; }
.chart svg { display: block; min-width: 25rem; }
.chart text { fill: var(--ink); font-size: 14px; font-variant-numeric: tabular-nums; }
.chart .member { font-weight: 600; }
.chart text.scale { fill: var(--soft); }
.chart line.scale { stroke: var(--soft); }
.bar { fill: var(--bar); }
.bar-1 { fill: var(--bar-1); }
.bar-2 { fill: var(--bar-2); }
.bar-3 { fill: var(--bar-3); }
.bar-4 { fill: var(--bar-4); }
.bar-5 { fill: var(--bar-5); }
.bar-6 { fill: var(--bar-6); }
.bar-7 { fill: var(--bar-7); }
sup { position: relative; top: -0.4em; margin-left: 0.2em; font-size: 0.75em; line-height: 0; vertical-align: baseline; }
td.number sup { position: absolute; top: auto; margin-top: -0.1em; line-height: 1.5; }
.command > .notes { margin-top: 0.625rem; color: var(--soft); font-size: 0.875rem; }
.notes a { display: inline-block; min-width: 1.25em; }
:target { scroll-margin-top: 1rem; }
.notes :target, sup :target { background: var(--warning-panel); }

@media (max-width: 40rem) {
  body { padding: 1.5rem 1rem 3rem; }
  h1 { font-size: 1.5rem; }
  .counts { gap: 0.75rem 1.5rem; grid-template-columns: repeat(2, max-content); }
  .command h2 code, .command-text { white-space: pre-line; }
}
@media (forced-colors: active) {
  .chart text, .chart text.scale { fill: CanvasText; }
  .chart line.scale { stroke: CanvasText; }
}
@media print {
  :root {
    color-scheme: light;
    --page: #ffffff; --panel: #ffffff; --line: #999999; --ink: #000000; --soft: #333333; --link: #000000;
    --error: #8a0f0a; --error-panel: #ffffff; --warning: #5e3b00; --warning-panel: #ffffff; --ok: #000000;
    --bar: #0072b2; --bar-1: #bd8300; --bar-2: #1d96db; --bar-3: #009e73; --bar-4: #968c0b; --bar-5: #0072b2;
    --bar-6: #d55e00; --bar-7: #c66f9f;
  }
  @page { margin: 18mm 16mm; }
  body { max-width: none; padding: 0; font-size: 10pt; }
  a { text-decoration: none; }
  nav { padding: 0; }
  .scroll { overflow: visible; background: none; }
  table { font-size: 9pt; }
  th, td { min-width: 8em; padding-right: 1em; overflow-wrap: anywhere; }
  .tabulation table { font-size: min(9pt, 100pt / var(--figures)); }
  .tabulation th, .tabulation td { min-width: 0; max-width: 16em; padding: 0.4em 0.6em 0.4em 0; }
  .tabulation th { overflow-wrap: anywhere; }
  .tabulation th.number { overflow-wrap: break-word; }
  .tabulation td.number { white-space: nowrap; }
  .tabulation > .chart { break-inside: avoid; }
  h2, .facts, caption { break-after: avoid; }
  tr, .messages li { break-inside: avoid; }
}
)css";

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_HTML_HTML_STYLE_H
