import ${package}.PlugIn;
import java.util.Arrays;
import java.util.Optional;
import java.util.function.Function;
import zelto.*;

/** Checks the generated code itself: every message is what its bytes say. */
public final class SelfTest {
    private static int faults = 0;

    private SelfTest() {
    }

    private static void expect(boolean isTrue, String message, String what) {
        if (!isTrue) {
            ++faults;
            System.out.println(message + ": " + what);
        }
    }

    private static <T extends Message> void check(T message, Function<byte[], Optional<T>> decode, String name) {
        byte[] bytes = message.encode();
        Optional<T> decoded = decode.apply(bytes);
        expect(decoded.isPresent(), name, "its own bytes are refused");
        decoded.ifPresent(same -> {
            expect(Arrays.equals(same.encode(), bytes), name, "its bytes change");
            expect(same.toSml().equals(message.toSml()), name, "its items change");
        });
        expect(decode.apply(Arrays.copyOf(bytes, bytes.length + 1)).isEmpty(), name, "a byte too many is taken");
        expect(bytes.length == 0 || decode.apply(Arrays.copyOf(bytes, bytes.length - 1)).isEmpty(), name,
            "a missing byte is taken");
        expect(message.toSml().isEmpty() == (bytes.length == 0), name, "its items are not written");
    }

//% each types
//% if isDecodable
    private static void check${type}() {
        check(new ${package}.messages.${type}(), ${package}.messages.${type}::decode, ${nameLiteral});
    }

//% end
//% end
//% each sentTypes
//% if isDecodable
    private static void checkSent${type}() {
        check(${package}.transactions.${type}.message(), ${package}.messages.${message}::decode,
            ${package}.transactions.${type}.NAME);
    }

//% end
//% end
    private static void checkStray() {
        Loopback loopback = new Loopback();
        new PlugIn(loopback.${sideEnd}());
        // A message of a stream that nobody defines, for which an equipment has an answer.
        loopback.${otherEnd}().send(new Header(0, 127, 1, false, 1), new byte[0]);
        expect(loopback.deliver() == 1 + ${strayAnswers}, "stream 127", "the answer is not the one of this side");
    }

    public static void main(String[] arguments) {
//% each types
//% if isDecodable
        check${type}();
//% end
//% end
//% each sentTypes
//% if isDecodable
        checkSent${type}();
//% end
//% end
        checkStray();
        System.out.println(faults + " faults");
        System.exit(faults == 0 ? 0 : 1);
    }
}
