using System.Collections.Generic;
using System.Linq;

namespace Zelto
{
    /// <summary>Follows the sequences while transactions pass. Several can be under way at the same time.</summary>
    public sealed class SequenceTracker
    {
        /// <summary>The sequences that each transaction is in.</summary>
        private readonly Dictionary<string, List<Sequence>> users = new Dictionary<string, List<Sequence>>();

        /// <summary>The sequences that have begun.</summary>
        private readonly Dictionary<Sequence, Course> courses = new Dictionary<Sequence, Course>();

        private long turn;

        internal SequenceTracker(IEnumerable<Sequence> sequences)
        {
            foreach (Sequence sequence in sequences)
            {
                foreach (string step in sequence.Steps.Distinct())
                {
                    if (!users.ContainsKey(step))
                        users[step] = new List<Sequence>();
                    users[step].Add(sequence);
                }
            }
        }

        /// <summary>The sequences that have begun, with the number of steps that have passed.</summary>
        public SortedDictionary<string, int> UnderWay
        {
            get
            {
                var places = new SortedDictionary<string, int>(System.StringComparer.Ordinal);
                foreach (KeyValuePair<Sequence, Course> place in courses)
                    places[place.Key.Name] = place.Value.Passed;
                return places;
            }
        }

        /// <summary>
        /// A transaction passes: all sequences that expect it go on. When there is none, those that it begins begin.
        /// When it begins none, the last one that went on and has it goes on there.
        /// </summary>
        internal List<Deviation> Take(string transaction)
        {
            var deviations = new List<Deviation>();
            List<Sequence> candidates;
            if (!users.TryGetValue(transaction, out candidates))
                return deviations;
            ++turn;
            if (!Advance(candidates, transaction) && !Begin(candidates, transaction, deviations))
                Skip(candidates, transaction, deviations);
            return deviations;
        }

        private bool Advance(List<Sequence> candidates, string transaction)
        {
            bool isExpected = false;
            foreach (Sequence sequence in candidates)
            {
                Course course;
                if (!courses.TryGetValue(sequence, out course) || sequence.Steps[course.Passed] != transaction)
                    continue;
                isExpected = true;
                SetPassed(sequence, course.Passed + 1);
            }
            return isExpected;
        }

        private bool Begin(List<Sequence> candidates, string transaction, List<Deviation> deviations)
        {
            bool hasBegun = false;
            foreach (Sequence sequence in candidates.Where(candidate => candidate.Steps[0] == transaction))
            {
                hasBegun = true;
                if (courses.ContainsKey(sequence))
                    deviations.Add(new Deviation(transaction, sequence.Name, true));
                SetPassed(sequence, 1);
            }
            return hasBegun;
        }

        private void Skip(List<Sequence> candidates, string transaction, List<Deviation> deviations)
        {
            Sequence latest = candidates.Where(courses.ContainsKey).OrderByDescending(each => courses[each].Turn)
                .FirstOrDefault();
            if (latest == null)
                return;
            deviations.Add(new Deviation(transaction, latest.Name, false));
            for (int step = courses[latest].Passed; step < latest.Steps.Count; ++step)
            {
                if (latest.Steps[step] == transaction)
                {
                    SetPassed(latest, step + 1);
                    return;
                }
            }
        }

        private void SetPassed(Sequence sequence, int steps)
        {
            if (steps == sequence.Steps.Count)
                courses.Remove(sequence);
            else
                courses[sequence] = new Course { Passed = steps, Turn = turn };
        }

        /// <summary>How far a sequence is, and when its last step passed.</summary>
        private struct Course
        {
            public int Passed { get; set; }

            public long Turn { get; set; }
        }
    }
}
