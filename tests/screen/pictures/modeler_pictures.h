#pragma once

namespace zb::test {

struct ProgramOnScreen;
class Photographer;

/// Pictures of the modeler and its dialogs at work on the etcher example.
void photographModeler(ProgramOnScreen& program, Photographer& camera);

} // namespace zb::test
