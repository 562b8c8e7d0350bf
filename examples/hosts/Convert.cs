// Converts a drawing with the host library, in C#: Convert.exe DRAWING.dxf METAFILE.emf
//
// mcs Convert.cs, or csc -define:WINDOWS Convert.cs
using System;
using System.IO;
using System.Runtime.InteropServices;
using System.Text;

static class Convert {
#if WINDOWS
  const string Library = "HexlumeHost";
#else
  const string Library = "hexlume_host";
#endif

  [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
  delegate int Progress(IntPtr user, int pass, int passes, long done, long total);

  [StructLayout(LayoutKind.Sequential)]
  struct Input {
    public int size, reserved;
    public long pathLength, byteCount;
    public IntPtr path, bytes;
  }

  [StructLayout(LayoutKind.Sequential)]
  struct Options {
    public int size, format, sheet, left, top, right, bottom, turned, wholeTexts, monochrome, halfWidth, fit;
    public int denominator, skipOffLayers, hiddenLineTypes, hiddenLayerCount;
    public long limitMilliseconds, limitStrokes, limitBytes;
    public IntPtr hiddenLayers;
    public Progress progress;
    public IntPtr user;
  }

  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern int hexlume_convert(ref Input input, ref Options options, out IntPtr result);
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr hexlume_result_metafile(IntPtr result);
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern long hexlume_result_metafile_size(IntPtr result);
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr hexlume_result_message(IntPtr result, int language);
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern void hexlume_result_free(IntPtr result);

  static string Text(IntPtr utf8) {
    int length = 0;
    while (Marshal.ReadByte(utf8, length) != 0) ++length;
    var bytes = new byte[length];
    Marshal.Copy(utf8, bytes, 0, length);
    return Encoding.UTF8.GetString(bytes);
  }

  static int ShowProgress(IntPtr user, int pass, int passes, long done, long total) {
    Console.Error.WriteLine("pass {0} of {1}: {2} of {3} bytes", pass, passes, done, total);
    return 0;  // any other number cancels
  }

  static int Main(string[] arguments) {
    var drawing = File.ReadAllBytes(arguments[0]);
    var pinned = GCHandle.Alloc(drawing, GCHandleType.Pinned);
    var input = new Input { size = Marshal.SizeOf(typeof(Input)), bytes = pinned.AddrOfPinnedObject(),
                            byteCount = drawing.Length };
    var options = new Options { size = Marshal.SizeOf(typeof(Options)), progress = ShowProgress };
    IntPtr result;
    int status = hexlume_convert(ref input, ref options, out result);
    pinned.Free();
    Console.WriteLine(Text(hexlume_result_message(result, 0)));
    var metafile = new byte[hexlume_result_metafile_size(result)];
    if (metafile.Length > 0) Marshal.Copy(hexlume_result_metafile(result), metafile, 0, metafile.Length);
    hexlume_result_free(result);
    File.WriteAllBytes(arguments[1], metafile);
    return status;
  }
}
