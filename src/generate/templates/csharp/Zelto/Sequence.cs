using System.Collections.Generic;

namespace Zelto
{
    /// <summary>A named list of transactions that follow each other.</summary>
    public sealed class Sequence
    {
        public Sequence(string name, params string[] steps)
        {
            Name = name;
            Steps = steps;
        }

        public string Name { get; }

        public IReadOnlyList<string> Steps { get; }
    }
}
