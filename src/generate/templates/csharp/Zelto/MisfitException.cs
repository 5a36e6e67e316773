using System;

namespace Zelto
{
    /// <summary>A value has more or fewer characters, values or members than its definition allows.</summary>
    public sealed class MisfitException : Exception
    {
        public MisfitException(string message) : base(message)
        {
        }
    }
}
