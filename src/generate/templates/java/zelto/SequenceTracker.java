package zelto;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.IdentityHashMap;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;

/** Follows the sequences while transactions pass. Several can be under way at the same time. */
public final class SequenceTracker {
    /** The sequences that each transaction is in. */
    private final Map<String, List<Sequence>> users = new HashMap<>();
    /** The sequences that have begun. */
    private final Map<Sequence, Course> courses = new IdentityHashMap<>();
    private long turn = 0;

    /**
     * How far a sequence is.
     *
     * @param turn when its last step passed
     */
    private record Course(int passed, long turn) {
    }

    SequenceTracker(List<Sequence> sequences) {
        for (Sequence sequence : sequences) {
            for (String step : new HashSet<>(sequence.steps())) {
                users.computeIfAbsent(step, name -> new ArrayList<>()).add(sequence);
            }
        }
    }

    /**
     * A transaction passes: all sequences that expect it go on. When there is none, those that it begins begin. When it
     * begins none, the last one that went on and has it goes on there.
     */
    List<Deviation> take(String transaction) {
        List<Deviation> deviations = new ArrayList<>();
        List<Sequence> candidates = users.get(transaction);
        if (candidates == null) {
            return deviations;
        }
        ++turn;
        if (!advance(candidates, transaction) && !begin(candidates, transaction, deviations)) {
            skip(candidates, transaction, deviations);
        }
        return deviations;
    }

    /** The sequences that have begun, with the number of steps that have passed. */
    public Map<String, Integer> underWay() {
        Map<String, Integer> places = new TreeMap<>();
        courses.forEach((sequence, course) -> places.put(sequence.name(), course.passed()));
        return places;
    }

    private boolean advance(List<Sequence> candidates, String transaction) {
        boolean isExpected = false;
        for (Sequence sequence : candidates) {
            Course course = courses.get(sequence);
            if (course != null && sequence.steps().get(course.passed()).equals(transaction)) {
                isExpected = true;
                setPassed(sequence, course.passed() + 1);
            }
        }
        return isExpected;
    }

    private boolean begin(List<Sequence> candidates, String transaction, List<Deviation> deviations) {
        boolean hasBegun = false;
        for (Sequence sequence : candidates) {
            if (!sequence.steps().get(0).equals(transaction)) {
                continue;
            }
            hasBegun = true;
            if (courses.containsKey(sequence)) {
                deviations.add(new Deviation(transaction, sequence.name(), true));
            }
            setPassed(sequence, 1);
        }
        return hasBegun;
    }

    private void skip(List<Sequence> candidates, String transaction, List<Deviation> deviations) {
        Sequence latest = null;
        for (Sequence sequence : candidates) {
            Course course = courses.get(sequence);
            if (course != null && (latest == null || course.turn() > courses.get(latest).turn())) {
                latest = sequence;
            }
        }
        if (latest == null) {
            return;
        }
        deviations.add(new Deviation(transaction, latest.name(), false));
        for (int step = courses.get(latest).passed(); step < latest.steps().size(); ++step) {
            if (latest.steps().get(step).equals(transaction)) {
                setPassed(latest, step + 1);
                return;
            }
        }
    }

    private void setPassed(Sequence sequence, int steps) {
        if (steps == sequence.steps().size()) {
            courses.remove(sequence);
        } else {
            courses.put(sequence, new Course(steps, turn));
        }
    }
}
