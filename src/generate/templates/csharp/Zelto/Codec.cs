using System;
using System.Collections.Generic;

namespace Zelto
{
    /// <summary>
    /// Reads, writes or prints the fields of a message in their order. Each call takes the value of a field and returns
    /// the value that the field has from then on.
    /// </summary>
    public abstract class Codec
    {
        private static readonly Count One = Count.Exactly(1);

        /// <summary>Begins a list with a fixed number of members.</summary>
        public abstract void List(int members);

        /// <summary>Ends a list.</summary>
        public abstract void End();

        /// <summary>An item of any format.</summary>
        public abstract Any X(Any any);

        /// <summary>The item before was a key: messages with another value are other messages.</summary>
        public virtual void Key(Value value, string expected)
        {
        }

        public List<T> ListOf<T>(List<T> members, Count count, Func<T> create, Func<T, T> describe)
        {
            int size = BeginList(members.Count, count);
            var described = new List<T>();
            for (int index = 0; index < size && IsGood; ++index)
                described.Add(describe(IsReading ? create() : members[index]));
            End();
            return described;
        }

        public List<T> ListOf<T>(List<T> members, Count count) where T : Part, new()
        {
            return ListOf(members, count, () => new T(), member =>
            {
                member.Describe(this);
                return member;
            });
        }

        public List<Any> AnyList(List<Any> members, Count count)
        {
            return ListOf(members, count, () => new Any(), X);
        }

        public string A(string value, Count count) => Text(Format.A, value, count);

        public string J(string value, Count count) => Text(Format.J, value, count);

        public byte B(byte value) => (byte)Single(Format.B, value);

        public byte[] Bs(byte[] values, Count count) => Many(Format.B, values, count, v => v, v => (byte)v);

        public bool Bool(bool value) => Single(Format.Boolean, value ? 1 : 0) != 0;

        public bool[] Bools(bool[] values, Count count) =>
            Many(Format.Boolean, values, count, v => v ? 1 : 0, v => v != 0);

        public sbyte I1(sbyte value) => (sbyte)Single(Format.I1, value);

        public sbyte[] I1s(sbyte[] values, Count count) => Many(Format.I1, values, count, v => v, v => (sbyte)v);

        public short I2(short value) => (short)Single(Format.I2, value);

        public short[] I2s(short[] values, Count count) => Many(Format.I2, values, count, v => v, v => (short)v);

        public int I4(int value) => (int)Single(Format.I4, value);

        public int[] I4s(int[] values, Count count) => Many(Format.I4, values, count, v => v, v => (int)v);

        public long I8(long value) => Single(Format.I8, value);

        public long[] I8s(long[] values, Count count) => Many(Format.I8, values, count, v => v, v => v);

        public byte U1(byte value) => (byte)Single(Format.U1, value);

        public byte[] U1s(byte[] values, Count count) => Many(Format.U1, values, count, v => v, v => (byte)v);

        public ushort U2(ushort value) => (ushort)Single(Format.U2, value);

        public ushort[] U2s(ushort[] values, Count count) => Many(Format.U2, values, count, v => v, v => (ushort)v);

        public uint U4(uint value) => (uint)Single(Format.U4, value);

        public uint[] U4s(uint[] values, Count count) => Many(Format.U4, values, count, v => v, v => (uint)v);

        public ulong U8(ulong value) => (ulong)Single(Format.U8, (long)value);

        public ulong[] U8s(ulong[] values, Count count) =>
            Many(Format.U8, values, count, v => (long)v, v => (ulong)v);

        public float F4(float value) => Numbers.ToFloat(Single(Format.F4, Numbers.BitsOf(value)));

        public float[] F4s(float[] values, Count count) =>
            Many(Format.F4, values, count, Numbers.BitsOf, Numbers.ToFloat);

        public double F8(double value) => Numbers.ToDouble(Single(Format.F8, Numbers.BitsOf(value)));

        public double[] F8s(double[] values, Count count) =>
            Many(Format.F8, values, count, Numbers.BitsOf, Numbers.ToDouble);

        /// <summary>Whether fields get new values.</summary>
        internal virtual bool IsReading => false;

        /// <summary>Whether all was as defined so far.</summary>
        internal virtual bool IsGood => true;

        /// <summary>Begins a list of variable count; returns the number of its members.</summary>
        internal abstract int BeginList(int members, Count count);

        /// <summary>Begins an item of numbers; returns how many there are.</summary>
        internal abstract int Begin(Format format, int values, Count count);

        internal abstract long Next(Format format, long bits);

        /// <summary>Ends an item of numbers.</summary>
        internal virtual void Finish()
        {
        }

        internal abstract string Text(Format format, string value, Count count);

        private long Single(Format format, long bits)
        {
            Begin(format, 1, One);
            long value = Next(format, bits);
            Finish();
            return value;
        }

        private T[] Many<T>(Format format, T[] values, Count count, Func<T, long> bitsOf, Func<long, T> valueOf)
        {
            int size = Begin(format, values.Length, count);
            T[] described = size == values.Length ? values : new T[size];
            for (int index = 0; index < size; ++index)
                described[index] = valueOf(Next(format, bitsOf(described[index])));
            Finish();
            return described;
        }
    }
}
