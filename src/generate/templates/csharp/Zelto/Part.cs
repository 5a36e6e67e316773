namespace Zelto
{
    /// <summary>A message, or a list within one that has a type of its own.</summary>
    public abstract class Part
    {
        /// <summary>Gives each field to the codec, in the order of the message.</summary>
        public abstract void Describe(Codec codec);
    }
}
