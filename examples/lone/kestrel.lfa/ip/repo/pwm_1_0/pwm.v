// One pulse-width channel: `out` is high for `duty` of 256 ticks.
module pwm (
    input  wire       clk,
    input  wire [7:0] duty,
    output reg        out
);
    reg [7:0] count = 8'd0;
    always @(posedge clk) begin
        count <= count + 8'd1;
        out   <= count < duty;
    end
endmodule
