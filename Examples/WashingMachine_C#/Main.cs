using System;

// The other part of the class that comes out of the chart: what its texts call.
public partial class WashingMachine
{
    private void Lock() { Console.WriteLine("door locked"); }
    private void Unlock() { Console.WriteLine("door unlocked"); }
    private void OpenValve() { Console.WriteLine("water runs"); }
    private void CloseValve() { Console.WriteLine("water stops"); }
    private void Turn(int speed) { Console.WriteLine("drum turns at " + speed); }
    private void Stop() { Console.WriteLine("drum stops"); }
    private void Ring() { Console.WriteLine("done"); }
}

public static class Program
{
    public static void Main()
    {
        var events = new[]
        {
            WashingMachine.Event.Start, WashingMachine.Event.Full, WashingMachine.Event.Hold,
            WashingMachine.Event.Resume, WashingMachine.Event.Timeout, WashingMachine.Event.Timeout,
            WashingMachine.Event.Timeout, WashingMachine.Event.Timeout,
        };
        var machine = new WashingMachine();
        machine.Start();
        foreach (var next in events)
        {
            machine.Dispatch(next);
            Console.WriteLine(next + ": " + machine.CurrentState());
        }
    }
}
