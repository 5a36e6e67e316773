namespace Zelto
{
    /// <summary>The two ends of a link.</summary>
    public enum Side
    {
        Host,
        Equipment
    }
}
