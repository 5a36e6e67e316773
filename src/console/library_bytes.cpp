#include "console/library_bytes.h"

#include "messages/mdf_text.h"
#include "messages/smd/smd_text.h"
#include "messages/sml_text.h"
#include "platform/text_file.h"
#include "project/project_text.h"

namespace zb {

std::string libraryBytes(const SECSLibraryStore::Records& records, SourceKind kind) {
    switch (kind) {
    case SourceKind::Project:
        // Nothing says which side a new project describes, so it is a host's.
        return encodeUtf16(composeStart(
            Side::Host,
            records.empty() ? ProjectMessages() : ProjectMessages(composeSmd(records, SmdForm::Project))));
    case SourceKind::Mdf:
        return composeMdf(records);
    case SourceKind::Sml:
        return composeSml(records);
    default:
        return composeSmd(records, SmdForm::Build);
    }
}

} // namespace zb
