package zelto;

/** The formats of SECS-II data items. */
public enum Format {
    L(000, 0),
    B(010, 1),
    BOOLEAN(011, 1),
    A(020, 1),
    J(021, 1),
    C2(022, 2),
    I8(030, 8),
    I1(031, 1),
    I2(032, 2),
    I4(034, 4),
    F8(040, 8),
    F4(044, 4),
    U8(050, 8),
    U1(051, 1),
    U2(052, 2),
    U4(054, 4);

    private static final Format[] BY_CODE = new Format[64];

    static {
        for (Format format : values()) {
            BY_CODE[format.code] = format;
        }
    }

    private final int code;
    private final int width;

    Format(int code, int width) {
        this.code = code;
        this.width = width;
    }

    /** The format with this code; null for a code that is not in use. */
    public static Format of(int code) {
        return BY_CODE[code];
    }

    public int code() {
        return code;
    }

    /** The bytes of one value; 0 for a list. */
    public int width() {
        return width;
    }

    public boolean isText() {
        return this == A || this == J || this == C2;
    }

    public boolean isSigned() {
        return this == I1 || this == I2 || this == I4 || this == I8;
    }
}
