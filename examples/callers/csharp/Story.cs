// The story of one platform: slicing starts and ends, somebody measures, the toolpath side asks.
//
//     Story TOOL SLICING TAVEN RESULT PLATFORM MEASURED LIMIT
//
// SLICING is the folder that slicing has filled, MEASURED the file that a measuring run would
// leave (empty: nobody measures), LIMIT the seconds that a call may take. Ends with 0 for a
// coordinate system, 1 for a message in its place, 2 for a refusal, 3 for an abnormal end, 4 for a
// call that took too long, 5 for a tool that can't be started.
using System;
using System.ComponentModel;
using System.Diagnostics;
using System.Globalization;
using System.IO;
using System.Text;
using System.Xml;

// There is no answer. Code is what this program ends with.
class ToolFailure : Exception
{
    public readonly int Code;

    public ToolFailure(int code, string text) : base(text)
    {
        Code = code;
    }
}

static class Tool
{
    // Runs the tool and returns whether the job was carried out. Copy this one, with Quoted.
    //
    // With its standard input at the end, a report on Linux needs no answer; it goes to our
    // standard error. On Windows it is a box that waits for a person, hence the limit.
    public static bool Run(string tool, int limitSeconds, params string[] switches)
    {
        var start = new ProcessStartInfo(tool, string.Join(" ", Array.ConvertAll(switches, Quoted)))
        {
            UseShellExecute = false,
            CreateNoWindow = true, // no console flashes; boxes still appear
            RedirectStandardInput = true,
        };
        using (Process process = Started(start))
        {
            process.StandardInput.Close();
            if (!process.WaitForExit(limitSeconds * 1000))
            {
                process.Kill();
                process.WaitForExit();
                throw new ToolFailure(4, "time limit: a report may have waited for a person");
            }
            if (process.ExitCode != 0 && process.ExitCode != 1)
                throw new ToolFailure(3, "abnormal end: " + process.ExitCode);
            return process.ExitCode == 1;
        }
    }

    // One argument of a command line, by the rules of Windows: backslashes count only in front of
    // a quotation mark, and there they are doubled - also in front of the closing one, which
    // "C:\my folder\" would otherwise swallow. (Where .NET has ArgumentList, that does the same.)
    static string Quoted(string argument)
    {
        var text = new StringBuilder("\"");
        int backslashes = 0;
        foreach (char unit in argument)
        {
            if (unit == '"') text.Append('\\', backslashes + 1);
            backslashes = unit == '\\' ? backslashes + 1 : 0;
            text.Append(unit);
        }
        return text.Append('\\', backslashes).Append('"').ToString();
    }

    static Process Started(ProcessStartInfo start)
    {
        try
        {
            return Process.Start(start);
        }
        catch (Win32Exception failure)
        {
            throw new ToolFailure(5, "not started: " + failure.Message);
        }
    }

    // Asks where a platform stands and returns the root element of the answer. Copy this one too.
    public static XmlElement Ask(string tool, int limitSeconds, string taven, string platform,
        string result, string zoffset)
    {
        File.Delete(result); // after a refusal an old one would still be there
        if (!Run(tool, limitSeconds, "-cmd:getncs", "-out:" + result, "-tavenfldr:" + taven,
                "-platform:" + platform, "-zoffset:" + zoffset))
            throw new ToolFailure(2, "refused: the report tells why");
        var document = new XmlDocument();
        document.Load(result);
        return document.DocumentElement;
    }

    // The elements of an ncs or cs element: its axes and its origin are the columns.
    public static double[,] Matrix(XmlElement frame)
    {
        var matrix = new double[4, 4];
        string[] columns = { "x", "y", "z", "o" };
        for (int column = 0; column < 4; ++column)
        {
            string[] numbers = frame.GetAttribute(columns[column]).Split(',');
            for (int row = 0; row < 3; ++row)
                matrix[row, column] = double.Parse(numbers[row], CultureInfo.InvariantCulture);
        }
        matrix[3, 3] = 1;
        return matrix;
    }
}

static class Story
{
    static int Tell(string tool, string slicing, string taven, string result, string platform,
        string measured, int limitSeconds)
    {
        string tavenSwitch = "-tavenfldr:" + taven, platformSwitch = "-platform:" + platform;
        Tool.Run(tool, limitSeconds, "-cmd:slistat", "-stat:started", tavenSwitch, platformSwitch);
        Console.WriteLine("slicing started");
        bool brought = Tool.Run(tool, limitSeconds, "-cmd:slistat", "-stat:ended_success",
            "-slifldr:" + slicing, tavenSwitch, platformSwitch);
        Console.WriteLine("slicing ended: " + (brought ? "brought in" : "nothing brought in"));
        if (measured != "")
        {
            File.Copy(measured, Path.Combine(taven, "MeasuringData_" + platform + ".xml"), true);
            Console.WriteLine("measured");
        }

        XmlElement answer = Tool.Ask(tool, limitSeconds, taven, platform, result, "0.25");
        XmlElement message = answer["message"];
        string type = message.GetAttribute("type");
        Console.WriteLine("answer: " + type);
        Console.WriteLine(message.GetAttribute("title") + ": " + message.InnerText);
        if (type != "confirm") return 1;
        foreach (string name in new[] { "ncs", "cs" })
        {
            Console.WriteLine(name);
            Print(Tool.Matrix(answer[name]));
        }
        return 0;
    }

    static void Print(double[,] matrix)
    {
        for (int row = 0; row < 4; ++row)
        {
            var numbers = new string[4];
            for (int column = 0; column < 4; ++column)
                numbers[column] = matrix[row, column].ToString("F8", CultureInfo.InvariantCulture);
            Console.WriteLine(string.Join(" ", numbers));
        }
    }

    static int Main(string[] given)
    {
        if (given.Length != 7)
        {
            Console.Error.WriteLine("Story TOOL SLICING TAVEN RESULT PLATFORM MEASURED LIMIT");
            return 64;
        }
        try
        {
            return Tell(given[0], given[1], given[2], given[3], given[4], given[5],
                int.Parse(given[6], CultureInfo.InvariantCulture));
        }
        catch (ToolFailure failure)
        {
            Console.WriteLine(failure.Message);
            return failure.Code;
        }
    }
}
