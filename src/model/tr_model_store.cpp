#include "model/tr_model_store.h"

#include "model/model_reader.h"
#include "model/model_writer.h"
#include "platform/text_file.h"

namespace zb {

void TRModelStore::loadModel(const std::string& path) {
    if (const auto bytes = readBytes(path))
        loadModelText(decodeProject(*bytes).text);
}

void TRModelStore::loadModelText(std::string_view projectText) {
    readModel(projectText, *this);
}

std::string TRModelStore::saveModel() const {
    return composeModel(*this);
}

} // namespace zb
