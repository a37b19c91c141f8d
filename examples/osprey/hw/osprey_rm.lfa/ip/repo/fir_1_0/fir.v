// A running sum over eight samples.
module fir(input clk, input [15:0] in, output reg [18:0] sum);
    reg [15:0] delay [0:7];
    integer i;
    always @(posedge clk) begin
        sum <= sum + in - delay[7];
        delay[0] <= in;
        for (i = 1; i < 8; i = i + 1) delay[i] <= delay[i - 1];
    end
endmodule
