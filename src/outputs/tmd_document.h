#pragma once

#include "platform/result.h"
#include "platform/xml_element.h"

#include <cstddef>
#include <string>

namespace zb {

class Sequences;
class TRModelStore;
class FileLayer;
struct ProjectView;

/// The root element of the transaction modeling definitions: the model as the driver reads it at run time.
///
/// A record that no document can hold, as one whose name is no XML name, ends its section there without a
/// word; what stands before it stays.
XmlElement composeTmd(const TRModelStore& model, int projectType, const Sequences& sequences);

/// What a TMD file that was written holds.
struct TmdContent {
    std::size_t messages = 0;
    std::size_t sequences = 0;
};

/// Replaces the TMD file at `path`; the project has a model. After an error there is no file.
Result<TmdContent> writeTMD(const ProjectView& project, FileLayer& files, const std::string& path);

} // namespace zb
