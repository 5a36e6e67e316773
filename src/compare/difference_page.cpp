#include "compare/difference_page.h"

#include "compare/aligned_page.h"
#include "compare/html_text.h"

#include <string_view>

namespace zb {

namespace {

constexpr std::string_view kStyle = R"(:root { color-scheme: light dark; }
body { font-family: sans-serif; margin: 1.5em; }
main { display: grid; gap: 1.5em; }
@media (min-width: 90em) { main { grid-template-columns: 2fr 3fr; } }
section { min-width: 0; }
summary { font-family: monospace; overflow-wrap: anywhere; }
details details { margin-left: 1em; }
table { border-collapse: collapse; width: 100%; table-layout: fixed; margin-bottom: 1.5em; }
td { font-family: monospace; white-space: pre-wrap; overflow-wrap: anywhere; vertical-align: top; padding: 0 0.5em; }
td.both { font-weight: bold; background: #e4e8ee; color: #16202c; }
td.before { background: #fbe3e1; color: #6b1410; }
td.after { background: #ddf2e0; color: #0e4a1c; }
@media (max-width: 40em) {
  body { margin: 0.75em; }
  table, tbody, tr, td { display: block; }
  td:empty { display: none; }
  details td.before::before { content: "-"; }
  details td.after::before { content: "+"; }
}
@media (prefers-color-scheme: dark) {
  td.both { background: #2b333e; color: #e6ebf2; }
  td.before { background: #47201e; color: #ffd9d6; }
  td.after { background: #1c3f26; color: #d3f5da; }
})";

std::string cell(const char* kind, const DifferenceLine* line) {
    if (line == nullptr)
        return "<td></td>";
    return std::string("<td class=\"") + kind + "\">" + line->sign + " " + htmlText(line->text) + "</td>";
}

/// Removed lines beside the added ones that follow them.
void appendBlock(std::string& html, const DifferenceBlock& block) {
    html += "<table>\n";
    for (std::size_t at = 0; at < block.size();) {
        if (block[at].sign == '~') {
            html += "<tr><td class=\"both\" colspan=\"2\">~ " + htmlText(block[at++].text) + "</td></tr>\n";
            continue;
        }
        std::size_t added = at;
        while (added < block.size() && block[added].sign == '-')
            ++added;
        std::size_t end = added;
        while (end < block.size() && block[end].sign == '+')
            ++end;
        const std::size_t removed = added;
        while (at < removed || added < end) {
            html += "<tr>" + cell("before", at < removed ? &block[at] : nullptr);
            html += cell("after", added < end ? &block[added] : nullptr) + "</tr>\n";
            at += at < removed ? 1U : 0U;
            added += added < end ? 1U : 0U;
        }
        at = end;
    }
    html += "</table>\n";
}

} // namespace

std::string differencePage(const std::string& before, const std::string& after,
                           const std::vector<DifferenceBlock>& blocks, const AlignedProjects& whole) {
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>";
    html += htmlText(before) + " and " + htmlText(after) + "</title>\n<style>\n";
    html.append(kStyle).append("\n</style>\n</head>\n<body>\n<h1>Differences</h1>\n");
    html += "<p>- " + htmlText(before) + "<br>+ " + htmlText(after) + "</p>\n";
    if (blocks.empty())
        html += "<p>There are no differences.</p>\n";
    html += "<main>\n<section>\n<h2>What differs</h2>\n";
    for (const DifferenceBlock& block : blocks)
        appendBlock(html, block);
    html += "</section>\n<section>\n<h2>The whole projects</h2>\n";
    appendAligned(html, whole);
    return html + "</section>\n</main>\n</body>\n</html>\n";
}

} // namespace zb
