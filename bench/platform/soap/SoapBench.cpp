// One SOAP round trip (envelope out, HTTP over loopback, reply parsed) against an in-process
// server that answers with a reply of about 2 KB, the size of a page of catalogue content.
#include "platform/soap/SoapClient.h"

#include <benchmark/benchmark.h>
#include <httplib.h>
#include <string>
#include <thread>

namespace {

constexpr const char *kWsdl = R"(<definitions targetNamespace="urn:catalogo"
    xmlns="http://schemas.xmlsoap.org/wsdl/" xmlns:soap="http://schemas.xmlsoap.org/wsdl/soap/"
    xmlns:tns="urn:catalogo" xmlns:xsd="http://www.w3.org/2001/XMLSchema">
  <message name="In"><part name="categoryId" type="xsd:string"/>
    <part name="page" type="xsd:short"/><part name="pageSize" type="xsd:short"/></message>
  <message name="Out"><part name="return" type="xsd:string"/></message>
  <portType name="CatalogInfo"><operation name="GetCategoryContent">
    <input message="tns:In"/><output message="tns:Out"/></operation></portType>
  <binding name="Binding" type="tns:CatalogInfo"><soap:binding style="rpc"/>
    <operation name="GetCategoryContent"><soap:operation soapAction=""/>
      <input><soap:body use="literal" namespace="urn:catalogo"/></input>
      <output><soap:body use="literal" namespace="urn:catalogo"/></output></operation></binding>
  <service name="catalogo"><port name="CatalogInfoSoapPort" binding="tns:Binding">
    <soap:address location="ENDPOINT"/></port></service>
</definitions>)";

std::string twoKilobyteReply()
{
    std::string products;
    for (int i = 0; products.size() < 1800; ++i) {
        products += "&lt;Product id=\"P-" + std::to_string(i) +
                    "\"&gt;&lt;Field fieldID=\"Name\"&gt;Taladro&lt;/Field&gt;&lt;/Product&gt;";
    }
    return R"(<?xml version="1.0" encoding="utf-8"?><S:Envelope )"
           R"(xmlns:S="http://schemas.xmlsoap.org/soap/envelope/"><S:Body>)"
           R"(<m:GetCategoryContentResponse xmlns:m="urn:catalogo"><return>&lt;Products&gt;)" +
           products + "&lt;/Products&gt;</return></m:GetCategoryContentResponse></S:Body>" +
           "</S:Envelope>";
}

void soapRoundTrip(benchmark::State &state)
{
    httplib::Server server;
    server.set_tcp_nodelay(true);
    const std::string base =
        "http://127.0.0.1:" + std::to_string(server.bind_to_any_port("127.0.0.1"));
    std::string wsdl = kWsdl;
    wsdl.replace(wsdl.find("ENDPOINT"), 8, base + "/soap");
    const std::string reply = twoKilobyteReply();
    server.Get("/service.wsdl", [&](const httplib::Request &, httplib::Response &res) {
        res.set_content(wsdl, "text/xml");
    });
    server.Post("/soap", [&](const httplib::Request &, httplib::Response &res) {
        res.set_content(reply, "text/xml; charset=utf-8");
    });
    std::thread thread([&] { server.listen_after_bind(); });
    while (!server.is_running())
        std::this_thread::yield();
    {
        SoapClient client;
        client.init(base + "/service.wsdl", "catalogo", "CatalogInfoSoapPort");
        for (auto _ : state) {
            benchmark::DoNotOptimize(
                client.call("GetCategoryContent", {"cat-17", std::int16_t{1}, std::int16_t{50}}));
        }
    }
    server.stop();
    thread.join();
    state.counters["reply_bytes"] = static_cast<double>(reply.size());
}

} // namespace

BENCHMARK(soapRoundTrip)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime()
    ->Repetitions(10)
    ->ReportAggregatesOnly(true);
