#pragma once

#include "../zelto/message.h"

namespace ${package}::messages {

/// ${summary}
struct ${type} {
    static constexpr zelto::MessageHead kHead{${nameLiteral}, ${stream}, ${function}, ${wait}};
//% each nested

    struct ${recordType} {
//% each fields
//% if initial
        ${fieldType} ${field} = ${initial}; ///< ${fieldComment}
//% else
        ${fieldType} ${field}; ///< ${fieldComment}
//% end
//% end

        template<typename Self, typename Codec>
//% if fields
        static void describe(Self& self, Codec& codec) {
//% else
        static void describe(Self&, Codec& codec) {
//% end
//% each steps
//% if openList
            codec.list(${count});
//% end
//% if closeList
            codec.end();
//% end
//% if value
            codec.item(self.${field}, zelto::Format::${format}, zelto::${rule}(${count}));
//% if isKey
            codec.key(self.${field}, ${keyLiteral});
//% end
//% end
//% if record
            ${partType}::describe(self.${field}, codec);
//% end
//% if values
            codec.listOf(self.${field}, zelto::${rule}(${count}), [&codec](auto& member) {
                codec.item(member, zelto::Format::${format}, zelto::${memberRule}(${memberCount}));
//% if isKey
                codec.key(member, ${keyLiteral});
//% end
            });
//% end
//% if records
            codec.listOf(self.${field}, zelto::${rule}(${count}),
                         [&codec](auto& member) { ${partType}::describe(member, codec); });
//% end
//% if anyItems
            codec.listOf(self.${field}, zelto::${rule}(${count}), [&codec](auto& member) { codec.any(member); });
//% end
//% end
        }

        bool operator==(const ${recordType}&) const = default;
    };
//% end

//% each fields
//% if initial
    ${fieldType} ${field} = ${initial}; ///< ${fieldComment}
//% else
    ${fieldType} ${field}; ///< ${fieldComment}
//% end
//% end

    /// The bytes of the message. Throws zelto::Misfit when a count is not as defined.
    std::string encode() const { return zelto::encode(*this); }
    /// Nothing when the bytes are not those of this message.
    static std::optional<${type}> decode(std::string_view bytes) { return zelto::decode<${type}>(bytes); }
    std::string toSml() const { return zelto::toSml(*this); }

    template<typename Self, typename Codec>
//% if fields
    static void describe(Self& self, Codec& codec) {
//% else
//% if steps
    static void describe(Self&, Codec& codec) {
//% else
    static void describe(Self&, Codec&) {
//% end
//% end
//% each steps
//% if openList
        codec.list(${count});
//% end
//% if closeList
        codec.end();
//% end
//% if value
        codec.item(self.${field}, zelto::Format::${format}, zelto::${rule}(${count}));
//% if isKey
        codec.key(self.${field}, ${keyLiteral});
//% end
//% end
//% if record
        ${partType}::describe(self.${field}, codec);
//% end
//% if values
        codec.listOf(self.${field}, zelto::${rule}(${count}), [&codec](auto& member) {
            codec.item(member, zelto::Format::${format}, zelto::${memberRule}(${memberCount}));
//% if isKey
            codec.key(member, ${keyLiteral});
//% end
        });
//% end
//% if records
        codec.listOf(self.${field}, zelto::${rule}(${count}),
                     [&codec](auto& member) { ${partType}::describe(member, codec); });
//% end
//% if anyItems
        codec.listOf(self.${field}, zelto::${rule}(${count}), [&codec](auto& member) { codec.any(member); });
//% end
//% end
    }

    bool operator==(const ${type}&) const = default;
};

} // namespace ${package}::messages
