using System.Collections.Generic;

namespace Zelto
{
    /// <summary>Helpers for lists of messages.</summary>
    public static class Lists
    {
        /// <summary>Adds a member to a list and returns it.</summary>
        public static T Add<T>(List<T> list, T member)
        {
            list.Add(member);
            return member;
        }
    }
}
