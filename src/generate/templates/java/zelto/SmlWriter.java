package zelto;

/** Writes the fields of a message as SML. */
final class SmlWriter extends Codec {
    private final StringBuilder text = new StringBuilder();
    private int depth = 0;

    String text() {
        return text.toString();
    }

    @Override
    public void list(int members) {
        indent().append("<L [").append(members).append("]\n");
        ++depth;
    }

    @Override
    public void end() {
        --depth;
        indent().append(">\n");
    }

    @Override
    int beginList(int members, Count count) {
        list(members);
        return members;
    }

    @Override
    int begin(Format format, int values, Count count) {
        indent().append('<').append(format);
        return values;
    }

    @Override
    long next(Format format, long bits) {
        text.append(' ').append(Numbers.text(format, Numbers.extended(format, bits)));
        return bits;
    }

    @Override
    void finish() {
        text.append(">\n");
    }

    /** Printable characters in quotation marks, all others as character codes. */
    @Override
    String text(Format format, String value, Count count) {
        indent().append('<').append(format);
        boolean isOpen = false;
        for (int at = 0; at < value.length(); ++at) {
            char character = value.charAt(at);
            boolean isPrintable = character >= 0x20 && character < 0x7F && character != '"';
            if (isPrintable != isOpen) {
                text.append(isOpen ? "\"" : " \"");
            }
            isOpen = isPrintable;
            if (isPrintable) {
                text.append(character);
            } else {
                text.append(' ').append((int) character);
            }
        }
        text.append(isOpen ? "\">\n" : value.isEmpty() ? " \"\">\n" : ">\n");
        return value;
    }

    @Override
    public Any x(Any any) {
        if (any.format == Format.L) {
            return list(any);
        }
        if (any.format.isText()) {
            text(any.format, any.data, null);
            return any;
        }
        begin(any.format, 0, null);
        for (long bits : any.bits()) {
            next(any.format, bits);
        }
        finish();
        return any;
    }

    private Any list(Any any) {
        list(any.members.size());
        any.members.forEach(this::x);
        end();
        return any;
    }

    private StringBuilder indent() {
        return text.append("  ".repeat(depth));
    }
}
