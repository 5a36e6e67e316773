package zelto;

import java.util.List;

/** A named list of transactions that follow each other. */
public record Sequence(String name, List<String> steps) {
}
