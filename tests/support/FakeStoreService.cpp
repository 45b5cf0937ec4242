#include "FakeStoreService.h"

#include "gateways/CommerceServer.h"
#include "platform/soap/SoapClient.h"

#include <pugixml.hpp>
#include <sstream>

namespace {

constexpr const char *kWsdl = R"(<?xml version="1.0" encoding="UTF-8"?>
<definitions targetNamespace="urn:zvtsorvek" xmlns="http://schemas.xmlsoap.org/wsdl/"
    xmlns:soap="http://schemas.xmlsoap.org/wsdl/soap/" xmlns:tns="urn:zvtsorvek"
    xmlns:xsd="http://www.w3.org/2001/XMLSchema">
  <message name="SellerRequest"><part name="sellerId" type="xsd:string"/></message>
  <message name="SellerResponse"><part name="return" type="xsd:string"/></message>
  <portType name="Store"><operation name="GetSellerInformation">
    <input message="tns:SellerRequest"/><output message="tns:SellerResponse"/>
  </operation></portType>
  <binding name="StoreBinding" type="tns:Store">
    <soap:binding style="rpc" transport="http://schemas.xmlsoap.org/soap/http"/>
    <operation name="GetSellerInformation">
      <soap:operation soapAction="urn:zvtsorvek#GetSellerInformation"/>
      <input><soap:body use="literal" namespace="urn:zvtsorvek"/></input>
      <output><soap:body use="literal" namespace="urn:zvtsorvek"/></output>
    </operation>
  </binding>
  <service name="zvtsorvek"><port name="StoreSoapPort" binding="tns:StoreBinding">
    <soap:address location="@ADDRESS@"/></port></service>
</definitions>)";

std::string envelope(const std::string &document)
{
    pugi::xml_document reply;
    auto body = reply.append_child("S:Envelope");
    body.append_attribute("xmlns:S") = "http://schemas.xmlsoap.org/soap/envelope/";
    auto response = body.append_child("S:Body").append_child("z:GetSellerInformationResponse");
    response.append_attribute("xmlns:z") = "urn:zvtsorvek";
    response.append_child("return").text() = document.c_str();
    std::ostringstream text;
    reply.save(text, "", pugi::format_raw);
    return text.str();
}

} // namespace

FakeStoreService::FakeStoreService()
{
    m_server.set_tcp_nodelay(true);
    m_port = m_server.bind_to_any_port("127.0.0.1");
    std::string wsdl = kWsdl;
    const std::string address = "http://127.0.0.1:" + std::to_string(m_port) + "/store";
    wsdl.replace(wsdl.find("@ADDRESS@"), 9, address);
    m_server.Get("/service.wsdl", [wsdl](const httplib::Request &, httplib::Response &res) {
        res.set_content(wsdl, "text/xml");
    });
    m_server.Post("/store", [this](const httplib::Request &req, httplib::Response &res) {
        pugi::xml_document request;
        request.load_string(req.body.c_str());
        const std::lock_guard lock(m_mutex);
        ++m_calls;
        m_lastSellerId = request.select_node("//sellerId").node().text().get();
        res.set_content(envelope(m_document), "text/xml; charset=utf-8");
    });
    m_thread = std::thread([this] { m_server.listen_after_bind(); });
    while (!m_server.is_running())
        std::this_thread::yield();
}

FakeStoreService::~FakeStoreService()
{
    m_server.stop();
    m_thread.join();
}

void FakeStoreService::bindStoreClient() const
{
    gStoreClient = std::make_shared<SoapClient>();
    gStoreClient->init("http://127.0.0.1:" + std::to_string(m_port) + "/service.wsdl", "zvtsorvek",
                       "StoreSoapPort");
}

void FakeStoreService::answer(std::string document)
{
    const std::lock_guard lock(m_mutex);
    m_document = std::move(document);
}

std::string FakeStoreService::lastSellerId() const
{
    const std::lock_guard lock(m_mutex);
    return m_lastSellerId;
}
