package zelto;

import java.util.List;

/** Helpers for lists of messages. */
public final class Lists {
    private Lists() {
    }

    /** Adds a member to a list and returns it. */
    public static <T> T add(List<T> list, T member) {
        list.add(member);
        return member;
    }
}
