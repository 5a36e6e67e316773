#pragma once

namespace zb {

/// The style sheet of the HTML document. Colours follow the system; tables scroll on a narrow screen; in
/// print each message stays together where it fits, and pages have numbers.
inline constexpr const char* kHtmlStyle = R"css(
:root { color-scheme: light dark; --ink: #1b2430; --paper: #ffffff; --soft: #5a6675; --line: #cfd6df; --band: #f2f5f9; --link: #0b57a4; }
@media (prefers-color-scheme: dark) {
  :root { --ink: #e4e9f0; --paper: #14181e; --soft: #9aa6b4; --line: #3a4450; --band: #1e252e; --link: #8ab8f0; }
}
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 72rem; padding: 1rem; background: var(--paper); color: var(--ink);
  font: 1rem/1.5 system-ui, sans-serif; overflow-wrap: anywhere; }
h1 { margin: 0.5rem 0; }
h2 { margin-top: 2.5rem; border-bottom: 2px solid var(--line); }
h3 { margin: 2rem 0 0.25rem; }
h4 { margin: 1rem 0 0.25rem; }
p { margin: 0.25rem 0; }
a { color: var(--link); }
code, .value { font-family: ui-monospace, monospace; font-size: 0.9em; }
.soft { color: var(--soft); }
.scroll { overflow-x: auto; margin: 0.5rem 0; }
table { border-collapse: collapse; width: 100%; font-size: 0.9rem; overflow-wrap: break-word; }
th, td { border: 1px solid var(--line); padding: 0.25rem 0.5rem; text-align: left; vertical-align: top; }
th { background: var(--band); white-space: nowrap; }
figure { margin: 1.5rem 0; }
pre { margin: 0; white-space: pre-wrap; }
svg { display: block; width: 100%; max-width: 34rem; height: auto; }
svg text { fill: currentColor; font: 13px system-ui, sans-serif; text-anchor: middle; }
svg .party { font-weight: bold; }
svg .life { stroke: var(--line); stroke-width: 2; }
svg .line { stroke: currentColor; stroke-width: 1.5; }
svg .head { fill: currentColor; }
svg a text { fill: var(--link); }
@page { margin: 18mm 15mm; @bottom-center { content: counter(page) " / " counter(pages); } }
@media print {
  :root { --ink: #000000; --paper: #ffffff; --soft: #444444; --line: #999999; --band: #eeeeee; --link: #000000; }
  body { max-width: none; padding: 0; font-size: 10pt; }
  h1, h2, h3, h4 { break-after: avoid; }
  h2 { break-before: page; }
  tr, figure, svg { break-inside: avoid; }
  thead { display: table-header-group; }
  a { text-decoration: none; }
  .scroll { overflow: visible; }
  code { overflow-wrap: anywhere; }
}
)css";

} // namespace zb
