#pragma once

#include "platform/progress.h"
#include "platform/result.h"
#include "platform/xml_element.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zb {

class Sequences;
class TRModelStore;
class FileLayer;
struct ProjectView;

/// The root element of the transaction modeling definitions: the model as the driver reads it at run time.
///
/// A record that a document cannot hold, for example one whose name is not an XML name, ends its section
/// there without a message; the records before it stay.
XmlElement composeTmd(const TRModelStore& model, int projectType, const Sequences& sequences,
                      const Progress& progress = {});

/// The contents of a written TMD file.
struct TmdContent {
    std::size_t messages = 0;
    std::size_t sequences = 0;
    /// What the document could not hold, by kind: "15 of 17 received messages". Empty when it holds the whole
    /// model.
    std::vector<std::string> leftOut = {};
};

/// Replaces the TMD file at `path`; the project has a model. After an error there is no file. Throws
/// Cancelled as long as the old file is there, which then stays.
Result<TmdContent> writeTMD(const ProjectView& project, FileLayer& files, const std::string& path,
                            const Progress& progress = {});

} // namespace zb
