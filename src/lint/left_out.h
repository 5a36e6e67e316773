#pragma once

namespace zb {

struct Finding;
struct ProjectView;

/// Adds to a finding of "tmd.name" what a TMD file leaves out because of the name: a record that a document
/// cannot hold ends its section. Other findings stay as they are.
void explainLeftOut(Finding& finding, const ProjectView& project);

} // namespace zb
