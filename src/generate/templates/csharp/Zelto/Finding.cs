namespace Zelto
{
    /// <summary>What a plug-in made of a message.</summary>
    public enum Finding
    {
        Taken,

        /// <summary>The message is defined, but no transaction takes it.</summary>
        NoTransaction,
        UnknownStream,
        UnknownFunction,

        /// <summary>No definition of its stream and function has these items.</summary>
        IllegalData
    }
}
