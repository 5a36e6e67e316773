#pragma once

//% each receivedTypes
#include "transactions/${file}.h"
//% end
//% each sentTypes
#include "transactions/${file}.h"
//% end
//% each types
#include "messages/${file}.h"
//% end
#include "zelto/link.h"

namespace ${package} {

/// The ${sideWord} side of ${project}. Derive from it and override the handlers of what you want to know.
class PlugIn : public zelto::Link {
public:
    explicit PlugIn(zelto::Transport& transport);

//% each sentTypes
//% if isPrimary
    /// ${head}. Returns the system bytes, which the reply has as well.
    std::uint32_t send${type}(const messages::${message}& message = transactions::${type}::message());
//% else
    /// ${head}, the reply to a primary message.
    void send${type}(const zelto::Header& primary,
                     const messages::${message}& message = transactions::${type}::message());
//% end
//% end

protected:
//% each receivedTypes
    /// ${head}
    virtual void on${type}(const transactions::${type}&) {}
//% end

private:
    zelto::Finding dispatch(const zelto::Header& header, std::string_view body) override;
    bool answer(const zelto::Header& primary, std::string_view message) override;
//% each chains
    zelto::Finding take(const zelto::Header& header, messages::${message}&& message);
//% end
    template<typename Transaction>
    void tell(const Transaction& received, const char* message);
};

} // namespace ${package}
